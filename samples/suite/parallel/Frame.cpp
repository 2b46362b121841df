// SPDX-License-Identifier: MIT
#include "Frame.h"

#include <QtEndian>

namespace suite {

namespace {

constexpr quint32 magicNumber = 0x4b465231;
constexpr int headerSize = 9; // magic, size of the payload, type
constexpr quint32 largestPayload = 512 << 20;
constexpr int compactFrom = 1 << 20;

} // namespace

QByteArray Frame::bytes() const
{
    QByteArray result(headerSize, Qt::Uninitialized);
    qToBigEndian(magicNumber, result.data());
    qToBigEndian(static_cast<quint32>(payload.size()), result.data() + 4);
    result[headerSize - 1] = static_cast<char>(type);
    return result + payload;
}

std::optional<Frame> FrameReader::next()
{
    const int available = m_bytes.size() - m_start;
    if (m_isBroken || available < headerSize) {
        return std::nullopt;
    }
    const char* header = m_bytes.constData() + m_start;
    const auto size = qFromBigEndian<quint32>(header + 4);
    if (qFromBigEndian<quint32>(header) != magicNumber || size > largestPayload) {
        m_isBroken = true;
        return std::nullopt;
    }
    if (available - headerSize < static_cast<int>(size)) {
        return std::nullopt;
    }
    Frame result;
    result.type = static_cast<Frame::Type>(header[headerSize - 1]);
    result.payload = m_bytes.mid(m_start + headerSize, static_cast<int>(size));
    m_start += headerSize + static_cast<int>(size);
    if (m_start == m_bytes.size() || m_start > compactFrom) {
        m_bytes.remove(0, m_start);
        m_start = 0;
    }
    return result;
}

} // namespace suite
