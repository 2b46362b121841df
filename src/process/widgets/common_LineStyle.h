// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>

/// How a line of output is shown: as if it was enclosed in a font tag with that colour and, if it
/// is bold, a b tag inside. Markup in the line may end these tags early.
struct common_LineStyle
{
    QColor colour;
    bool isBold = false;
};
