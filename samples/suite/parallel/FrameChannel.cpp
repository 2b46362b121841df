// SPDX-License-Identifier: MIT
#include "FrameChannel.h"

namespace suite {

FrameChannel::FrameChannel(int input, int output)
    : m_input(Descriptor::duplicateOf(input)), m_output(Descriptor::duplicateOf(output))
{
    connect(&m_input, &PipeReader::bytesRead, this, &FrameChannel::take);
    connect(&m_input, &PipeReader::ended, this, &FrameChannel::close);
    connect(&m_output, &PipeWriter::written, this, &FrameChannel::sent);
    connect(&m_output, &PipeWriter::broken, this, &FrameChannel::close);
}

void FrameChannel::send(const Frame& frame)
{
    m_output.write(frame.bytes());
}

void FrameChannel::take(const QByteArray& bytes)
{
    m_reader.add(bytes);
    while (const std::optional<Frame> frame = m_reader.next()) {
        Q_EMIT received(*frame);
    }
    if (m_reader.isBroken()) {
        close();
    }
}

void FrameChannel::close()
{
    if (!m_isClosed) {
        m_isClosed = true;
        m_input.close();
        m_output.cancel();
        Q_EMIT closed();
    }
}

} // namespace suite
