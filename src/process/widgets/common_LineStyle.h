#pragma once

#include <QColor>

/// How a line of output is shown, as if a font tag in that colour, and a b tag in it where the line
/// is bold, stood around it: markup in the line may end them early.
struct common_LineStyle
{
    QColor colour;
    bool isBold = false;
};
