// SPDX-License-Identifier: MIT
#pragma once

#include "Pipe.h"

#include <QByteArray>
#include <QObject>
#include <QSocketNotifier>

/// Writes into a pipe from the event loop, as fast as the other end reads.
class PipeWriter : public QObject
{
    Q_OBJECT

public:
    /// Needs WriteFailures::report(): otherwise a pipe without a reader ends this program.
    explicit PipeWriter(Descriptor writeEnd);

    /// Does nothing if the pipe is closed or has lost its reader.
    void write(const QByteArray& bytes);

    /// The number of bytes that are not written yet.
    [[nodiscard]] int unsent() const { return m_unsent.size() - m_start; }

    /// Closes the pipe as soon as everything is written.
    void close();

    /// Closes the pipe at once. Unsent bytes are lost.
    void cancel();

Q_SIGNALS:
    /// All bytes are written.
    void written();

    /// The pipe has lost its reader.
    void broken();

private:
    void writeSome();

    Descriptor m_writeEnd;
    QSocketNotifier m_notifier;
    QByteArray m_unsent;
    int m_start = 0; ///< of the unsent bytes
    bool m_isClosing = false;
};
