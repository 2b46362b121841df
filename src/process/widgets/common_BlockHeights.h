// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <deque>
#include <vector>

/// The heights of the blocks of a text, in whole pixels: measured for blocks that came into view,
/// estimated from the number of characters for all others.
///
/// Appending and measuring take constant time. Finding a position takes one step for every thousand
/// blocks, a new estimate a few nanoseconds for each block.
class common_BlockHeights
{
public:
    /// The base of the estimates: the height of a line of text, and the number of characters that
    /// fit into it. Both are at least 1.
    struct Line
    {
        int height = 1;
        int characters = 1;
    };

    int count() const { return static_cast<int>(m_blocks.size()); }
    qint64 total() const { return m_total; }

    /// The position of the block's top. The block after the last one begins at total().
    qint64 top(int block) const;
    int height(int block) const;

    /// The block at the position; the first or the last one for a position outside.
    /// -1 when there is no block.
    int blockAt(qint64 place) const;

    bool isMeasured(int block) const;

    /// Returns by how much the block is higher now.
    int setMeasured(int block, int height);

    /// Keeps only the first blocks, of that number.
    void truncate(int count);

    void append(int characters);

    /// All heights become estimates.
    void estimate(Line line);

private:
    struct Block
    {
        int characters;
        int height : 31;
        unsigned isMeasured : 1;
    };

    int estimated(int characters) const;
    Block& at(int block) { return m_blocks[static_cast<std::size_t>(block)]; }
    const Block& at(int block) const { return m_blocks[static_cast<std::size_t>(block)]; }
    void add(int block, int difference);

    Line m_line;
    std::deque<Block> m_blocks;   ///< never moves its elements, so appending never takes long
    std::vector<qint64> m_groups; ///< the heights of so many blocks each
    qint64 m_total = 0;
};
