// SPDX-License-Identifier: MIT
#include "common_BlockHeights.h"

#include <algorithm>

namespace {

constexpr int groupSize = 1024;
constexpr qint64 greatestHeight = (1 << 30) - 1;

std::size_t groupOf(int block)
{
    return static_cast<std::size_t>(block / groupSize);
}

} // namespace

qint64 common_BlockHeights::top(int block) const
{
    qint64 result = 0;
    for (std::size_t group = 0; group < groupOf(block); ++group) {
        result += m_groups[group];
    }
    for (int other = block / groupSize * groupSize; other < block; ++other) {
        result += at(other).height;
    }
    return result;
}

int common_BlockHeights::height(int block) const
{
    return at(block).height;
}

int common_BlockHeights::blockAt(qint64 place) const
{
    std::size_t group = 0;
    while (group + 1 < m_groups.size() && place >= m_groups[group]) {
        place -= m_groups[group++];
    }
    const int last = count() - 1;
    int block = static_cast<int>(group) * groupSize;
    while (block < last && place >= at(block).height) {
        place -= at(block++).height;
    }
    return std::min(block, last);
}

bool common_BlockHeights::isMeasured(int block) const
{
    return at(block).isMeasured != 0;
}

int common_BlockHeights::setMeasured(int block, int height)
{
    height = static_cast<int>(std::min<qint64>(height, greatestHeight));
    const int difference = height - at(block).height;
    at(block).height = height;
    at(block).isMeasured = 1;
    add(block, difference);
    return difference;
}

void common_BlockHeights::truncate(int count)
{
    while (this->count() > count) {
        add(this->count() - 1, -m_blocks.back().height);
        m_blocks.pop_back();
    }
    m_groups.resize((m_blocks.size() + groupSize - 1) / groupSize);
}

void common_BlockHeights::append(int characters)
{
    const int block = count();
    m_groups.resize(groupOf(block) + 1);
    m_blocks.push_back({characters, estimated(characters), 0});
    add(block, m_blocks.back().height);
}

void common_BlockHeights::estimate(Line line)
{
    m_line = {std::max(line.height, 1), std::max(line.characters, 1)};
    std::fill(m_groups.begin(), m_groups.end(), 0);
    m_total = 0;
    int number = 0;
    for (Block& block : m_blocks) {
        block.height = estimated(block.characters);
        block.isMeasured = 0;
        add(number++, block.height);
    }
}

int common_BlockHeights::estimated(int characters) const
{
    if (characters <= m_line.characters) {
        return m_line.height;
    }
    const qint64 lines =
        (static_cast<qint64>(characters) + m_line.characters - 1) / m_line.characters;
    return static_cast<int>(std::min(lines * m_line.height, greatestHeight));
}

void common_BlockHeights::add(int block, int difference)
{
    m_groups[groupOf(block)] += difference;
    m_total += difference;
}
