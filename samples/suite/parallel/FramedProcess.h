// SPDX-License-Identifier: MIT
#pragma once

#include "Frame.h"
#include "Heartbeat.h"

#include <ChildProcess.h>

namespace suite {

/// A program that exchanges frames over its standard channels. Watches whether it is alive.
class FramedProcess : public ChildProcess
{
    Q_OBJECT

public:
    explicit FramedProcess(QObject* parent = nullptr);

    /// Starts the program and the watch over it; use it in place of start(). `startLimit` is the
    /// limit for the first frame, in milliseconds; it may be longer than the silence limit
    /// afterwards.
    void startFramed(const QString& program, const QStringList& arguments, int startLimit);

    void send(const Frame& frame);

    /// From now on silence is not reported.
    void stopWatching();

    /// The last lines from the program's error channel, for messages.
    [[nodiscard]] QString lastWords() const;

    /// Whether any frame has arrived.
    [[nodiscard]] bool hasAnswered() const { return m_hasAnswered; }

Q_SIGNALS:
    void received(const suite::Frame& frame);

    /// A line has arrived on the error channel.
    void errorLineRead(const QString& line);

    /// The program has sent something that is not a frame.
    void broken(const QString& reason);

    /// The program has been silent for too long.
    void silent();

private:
    void readFrames(const QByteArray& bytes);
    void readErrorLines(const QByteArray& bytes);

    FrameReader m_reader;
    Heartbeat m_heartbeat;
    QTimer m_startLimit;
    QStringList m_lastLines;
    QByteArray m_line;
    bool m_hasAnswered = false;
};

} // namespace suite
