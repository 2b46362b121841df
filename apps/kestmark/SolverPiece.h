// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

/// A part of a component's output as the library passes it to its parser: a line with its line end,
/// or a piece of a long line.
struct SolverPiece
{
    qint64 line = 1;    ///< from 1 on
    qint64 number = 1;  ///< of the piece in its line, from 1 on
    bool isLast = true; ///< whether the line ends with it
    QByteArray bytes;
};
