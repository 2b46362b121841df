// SPDX-License-Identifier: MIT
#pragma once

#include "SolverPiece.h"

#include <functional>

/// Cuts a component's output into pieces just as the library does: lines of up to 1023 bytes, line
/// end included, as a whole, longer ones in pieces of 1023 bytes. A text after the last line end is
/// never passed on.
///
/// Takes a constant amount of memory: of a line that is longer than a megabyte, the pieces are
/// passed on before its end is known.
class SolverLines
{
public:
    using Take = std::function<void(const SolverPiece& piece)>;

    explicit SolverLines(Take take);

    /// Passes on the pieces that these bytes complete.
    void add(const QByteArray& bytes);

    /// The number of complete lines.
    qint64 count() const { return m_line - 1; }

    /// The start of what has come after the last line end: the rest itself, unless it is longer
    /// than a megabyte. Empty when nothing has come.
    QByteArray rest() const { return m_rest; }

    /// Whether pieces of the rest have been passed on.
    bool isRestBegun() const { return m_piece > 1; }

private:
    void takeLine(int end);
    void takeStart();
    void take(int length, bool isLast);

    Take m_take;
    QByteArray m_rest;
    int m_taken = 0; ///< bytes of the rest that have been passed on
    qint64 m_line = 1;
    qint64 m_piece = 1;
};
