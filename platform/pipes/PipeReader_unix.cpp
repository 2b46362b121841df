// SPDX-License-Identifier: MIT
#include "PipeReader.h"

#include <QByteArray>

#include <cerrno>
#include <utility>

#include <sys/ioctl.h>
#include <unistd.h>

namespace {

constexpr int readSize = 1 << 16;

} // namespace

PipeReader::PipeReader(Descriptor readEnd)
    : m_readEnd(std::move(readEnd)), m_notifier(m_readEnd.number(), QSocketNotifier::Read)
{
    m_readEnd.setNonBlocking();
    connect(&m_notifier, &QSocketNotifier::activated, this, [this] { read(readSize); });
}

void PipeReader::finish()
{
    int left = 0;
    if (::ioctl(m_readEnd.number(), FIONREAD, &left) != 0) {
        left = 0;
    }
    while (left > 0) {
        const int size = read(qMin(left, readSize));
        left = size > 0 ? left - size : 0;
    }
    close();
}

int PipeReader::read(int most)
{
    QByteArray bytes(most, Qt::Uninitialized);
    const auto size = static_cast<int>(
        ::read(m_readEnd.number(), bytes.data(), static_cast<std::size_t>(bytes.size())));
    if (size > 0) {
        bytes.truncate(size);
        Q_EMIT bytesRead(bytes);
    } else if (size == 0 || (errno != EAGAIN && errno != EINTR)) {
        close();
        Q_EMIT ended();
    }
    return size;
}

void PipeReader::close()
{
    m_notifier.setEnabled(false);
    m_readEnd.close();
}
