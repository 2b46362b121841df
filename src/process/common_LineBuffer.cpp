// SPDX-License-Identifier: MIT
#include "common_LineBuffer.h"

#include <QIODevice>

#include <algorithm>

namespace {

constexpr std::size_t longestPiece = 1023;
constexpr std::size_t memoryKept = 1 << 20;

} // namespace

void common_LineBuffer::readFrom(QIODevice& device)
{
    dropTaken();
    for (qint64 available = device.bytesAvailable(); available > 0;
         available = device.bytesAvailable()) {
        const std::size_t size = m_bytes.size();
        m_bytes.resize(size + static_cast<std::size_t>(available));
        const qint64 read = device.read(&m_bytes[size], available);
        m_bytes.resize(size + static_cast<std::size_t>(std::max<qint64>(read, 0)));
        if (read <= 0) {
            return;
        }
    }
}

bool common_LineBuffer::hasLine()
{
    if (m_lineEnd > m_taken) {
        return true;
    }
    const std::size_t found = m_bytes.find('\n', std::max(m_searched, m_taken));
    if (found == std::string::npos) {
        m_searched = m_bytes.size();
        return false;
    }
    m_lineEnd = found + 1;
    m_searched = m_lineEnd;
    return true;
}

QString common_LineBuffer::takePiece()
{
    const std::size_t length = std::min(m_lineEnd - m_taken, longestPiece);
    QString piece = QString::fromUtf8(&m_bytes[m_taken], static_cast<int>(length));
    m_taken += length;
    return piece;
}

void common_LineBuffer::clear()
{
    *this = common_LineBuffer();
}

// Moves the rest to the front only when it is shorter than the part that is removed, so that a long
// line that is taken in pieces while more arrives is not moved for each piece.
void common_LineBuffer::dropTaken()
{
    const std::size_t left = m_bytes.size() - m_taken;
    if (m_taken == 0 || left > m_taken) {
        return;
    }
    m_bytes.erase(0, m_taken);
    m_searched -= std::min(m_searched, m_taken);
    m_lineEnd -= std::min(m_lineEnd, m_taken);
    m_taken = 0;
    if (m_bytes.capacity() > memoryKept && left < memoryKept / 2) {
        m_bytes.shrink_to_fit();
    }
}
