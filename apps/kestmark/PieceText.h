// SPDX-License-Identifier: MIT
#pragma once

#include "SolverPiece.h"

#include "Remark.h"

#include <QString>
#include <QVector>

/// The bytes of a piece as text.
namespace PieceText {

/// Decoded as the library does it.
QString decode(const SolverPiece& piece);

/// What the library makes of the text before it looks for markers: without line ends, and without
/// what the parallel runtime prints when it closes its sockets.
QString cleaned(const QString& text);

/// What is wrong with the bytes.
QVector<Remark> remarks(const SolverPiece& piece);

/// What is lost where a line is cut: the end of the piece before is empty for the first piece of a
/// line.
QVector<Remark> cutRemarks(const QString& endBefore, const SolverPiece& piece);

} // namespace PieceText
