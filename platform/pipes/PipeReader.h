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

    /// Reads what is in the pipe at this moment and closes it. A process that never stops writing
    /// does not keep the caller here.
    void finish();

    /// Closes the pipe; nothing more is read. May be called in a slot of bytesRead().
    void close();

Q_SIGNALS:
    void bytesRead(const QByteArray& bytes);

    /// The pipe is at its end, or cannot be read.
    void ended();

private:
    /// Returns how many bytes were read.
    int read(int most);

    Descriptor m_readEnd;
    QSocketNotifier m_notifier;
};
