// SPDX-License-Identifier: MIT
#include "PipeWriter.h"

#include <cerrno>
#include <utility>

#include <unistd.h>

namespace {

constexpr int compactFrom = 1 << 20; // bytes

} // namespace

PipeWriter::PipeWriter(Descriptor writeEnd)
    : m_writeEnd(std::move(writeEnd)), m_notifier(m_writeEnd.number(), QSocketNotifier::Write)
{
    m_writeEnd.setNonBlocking();
    m_notifier.setEnabled(false);
    connect(&m_notifier, &QSocketNotifier::activated, this, &PipeWriter::writeSome);
}

void PipeWriter::write(const QByteArray& bytes)
{
    if (m_writeEnd.isOpen() && !m_isClosing && !bytes.isEmpty()) {
        m_unsent += bytes;
        m_notifier.setEnabled(true);
    }
}

void PipeWriter::close()
{
    m_isClosing = true;
    if (m_unsent.isEmpty()) {
        m_notifier.setEnabled(false);
        m_writeEnd.close();
    }
}

void PipeWriter::cancel()
{
    m_unsent.clear();
    m_start = 0;
    close();
}

void PipeWriter::writeSome()
{
    const auto size =
        static_cast<int>(::write(m_writeEnd.number(), m_unsent.constData() + m_start,
                                 static_cast<std::size_t>(m_unsent.size() - m_start)));
    if (size < 0 && (errno == EAGAIN || errno == EINTR)) {
        return;
    }
    m_start += qMax(0, size);
    if (size < 0 || m_start == m_unsent.size()) {
        m_unsent.clear();
        m_start = 0;
        m_notifier.setEnabled(false);
    } else if (m_start > compactFrom) {
        m_unsent.remove(0, m_start);
        m_start = 0;
    }
    if (size < 0 || (m_isClosing && m_unsent.isEmpty())) {
        m_notifier.setEnabled(false);
        m_writeEnd.close();
    }
    if (size < 0) {
        Q_EMIT broken();
    } else if (m_unsent.isEmpty()) {
        Q_EMIT written();
    }
}
