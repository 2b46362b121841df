// SPDX-License-Identifier: MIT
#include "SolverLines.h"

#include <algorithm>
#include <utility>

namespace {

constexpr int longestPiece = 1023;
constexpr int longestHeld = 1 << 20;

} // namespace

SolverLines::SolverLines(Take take) : m_take(std::move(take))
{}

void SolverLines::add(const QByteArray& bytes)
{
    int searched = m_rest.size();
    m_rest += bytes;
    for (int found = m_rest.indexOf('\n', searched); found >= 0;
         found = m_rest.indexOf('\n', searched)) {
        searched = found + 1;
        takeLine(searched);
    }
    if (m_rest.size() - m_taken > longestHeld) {
        takeStart();
    }
    m_rest.remove(0, m_taken);
    m_taken = 0;
}

void SolverLines::takeLine(int end)
{
    while (m_taken < end) {
        const int length = std::min(end - m_taken, longestPiece);
        take(length, m_taken + length == end);
    }
    ++m_line;
    m_piece = 1;
}

// A byte at least stays: the last piece of a line is not empty.
void SolverLines::takeStart()
{
    while (m_rest.size() - m_taken > longestPiece) {
        take(longestPiece, false);
    }
}

void SolverLines::take(int length, bool isLast)
{
    m_take({m_line, m_piece, isLast, m_rest.mid(m_taken, length)});
    m_taken += length;
    ++m_piece;
}
