// SPDX-License-Identifier: MIT
#pragma once

#include "Pipe.h"

#include <QObject>
#include <QSocketNotifier>

/// Reads a pipe from the event loop.
class PipeReader : public QObject
{
    Q_OBJECT

public:
    explicit PipeReader(Descriptor readEnd);

    /// Reads the current content of the pipe and closes it. Returns even if a process never stops
    /// writing.
    void finish();

    /// Closes the pipe; nothing more is read. May be called in a slot of bytesRead().
    void close();

Q_SIGNALS:
    void bytesRead(const QByteArray& bytes);

    /// The end of the pipe is reached, or reading has failed.
    void ended();

private:
    /// Returns how many bytes were read.
    int read(int most);

    Descriptor m_readEnd;
    QSocketNotifier m_notifier;
};
