#include "FrameChannel.h"

#include <array>
#include <cerrno>

#include <fcntl.h>
#include <unistd.h>

namespace suite {

namespace {

constexpr int readSize = 1 << 16;
constexpr int compactFrom = 1 << 20;

void setNonBlocking(int descriptor)
{
    ::fcntl(descriptor, F_SETFL, ::fcntl(descriptor, F_GETFL) | O_NONBLOCK);
}

bool isForLater()
{
    return errno == EAGAIN || errno == EWOULDBLOCK || errno == EINTR;
}

} // namespace

FrameChannel::FrameChannel(int input, int output)
    : m_inputDescriptor(input)
    , m_outputDescriptor(output)
    , m_input(input, QSocketNotifier::Read)
    , m_output(output, QSocketNotifier::Write)
{
    setNonBlocking(input);
    setNonBlocking(output);
    m_output.setEnabled(false);
    connect(&m_input, &QSocketNotifier::activated, this, &FrameChannel::read);
    connect(&m_output, &QSocketNotifier::activated, this, &FrameChannel::write);
}

void FrameChannel::send(const Frame& frame)
{
    if (!m_isClosed) {
        m_unsent += frame.bytes();
        m_output.setEnabled(true);
    }
}

void FrameChannel::read()
{
    std::array<char, readSize> bytes;
    const ssize_t size = ::read(m_inputDescriptor, bytes.data(), bytes.size());
    if (size < 0 && isForLater()) {
        return;
    }
    if (size <= 0) {
        close();
        return;
    }
    m_reader.add(QByteArray(bytes.data(), static_cast<int>(size)));
    while (const std::optional<Frame> frame = m_reader.next()) {
        Q_EMIT received(*frame);
    }
    if (m_reader.isBroken()) {
        close();
    }
}

void FrameChannel::write()
{
    const ssize_t size = ::write(m_outputDescriptor, m_unsent.constData() + m_start,
                                 static_cast<std::size_t>(unsent()));
    if (size < 0) {
        if (!isForLater()) {
            close();
        }
        return;
    }
    m_start += static_cast<int>(size);
    if (m_start > compactFrom || unsent() == 0) {
        m_unsent.remove(0, m_start);
        m_start = 0;
    }
    if (unsent() == 0) {
        m_output.setEnabled(false);
        Q_EMIT sent();
    }
}

void FrameChannel::close()
{
    if (!m_isClosed) {
        m_isClosed = true;
        m_unsent.clear();
        m_start = 0;
        m_input.setEnabled(false);
        m_output.setEnabled(false);
        Q_EMIT closed();
    }
}

} // namespace suite
