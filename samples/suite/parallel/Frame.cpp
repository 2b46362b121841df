#include "Frame.h"

#include <QtEndian>

namespace suite {

namespace {

constexpr quint32 Magic = 0x4b465231;
constexpr int HeaderSize = 9; // magic, size of the payload, type
constexpr quint32 LargestPayload = 512 << 20;
constexpr int CompactFrom = 1 << 20;

} // namespace

QByteArray Frame::bytes() const
{
    QByteArray result(HeaderSize, Qt::Uninitialized);
    qToBigEndian(Magic, result.data());
    qToBigEndian(static_cast<quint32>(payload.size()), result.data() + 4);
    result[HeaderSize - 1] = static_cast<char>(type);
    return result + payload;
}

std::optional<Frame> FrameReader::next()
{
    const int available = m_bytes.size() - m_start;
    if (m_isBroken || available < HeaderSize) {
        return std::nullopt;
    }
    const char* header = m_bytes.constData() + m_start;
    const auto size = qFromBigEndian<quint32>(header + 4);
    if (qFromBigEndian<quint32>(header) != Magic || size > LargestPayload) {
        m_isBroken = true;
        return std::nullopt;
    }
    if (available - HeaderSize < static_cast<int>(size)) {
        return std::nullopt;
    }
    Frame result;
    result.type = static_cast<Frame::Type>(header[HeaderSize - 1]);
    result.payload = m_bytes.mid(m_start + HeaderSize, static_cast<int>(size));
    m_start += HeaderSize + static_cast<int>(size);
    if (m_start == m_bytes.size() || m_start > CompactFrom) {
        m_bytes.remove(0, m_start);
        m_start = 0;
    }
    return result;
}

} // namespace suite
