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
    /// A pipe without a reader must not end this program: see WriteFailures.
    explicit PipeWriter(Descriptor writeEnd);

    /// Nothing when the pipe is closed, or has no reader any more.
    void write(const QByteArray& bytes);

    /// How many bytes the other end has not taken yet.
    [[nodiscard]] int unsent() const { return m_unsent.size() - m_start; }

    /// Closes the pipe once all is written.
    void close();

    /// Closes the pipe at once. What is unsent is lost.
    void cancel();

Q_SIGNALS:
    /// The other end has taken all bytes.
    void written();

    /// The pipe has no reader any more.
    void broken();

private:
    void writeSome();

    Descriptor m_writeEnd;
    QSocketNotifier m_notifier;
    QByteArray m_unsent;
    int m_start = 0; ///< of what is unsent
    bool m_isClosing = false;
};
