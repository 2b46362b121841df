#pragma once

#include "Frame.h"
#include "Heartbeat.h"

#include <ChildProcess.h>

namespace suite {

/// A program that frames are exchanged with over its standard channels, and whether it is alive.
class FramedProcess : public ChildProcess
{
    Q_OBJECT

public:
    explicit FramedProcess(QObject* parent = nullptr);

    /// Starts the program and the watch over it; use it in place of start(). The first
    /// frame may take longer than the silence limit allows later: "startLimit", in ms.
    void startFramed(const QString& program, const QStringList& arguments, int startLimit);

    void send(const Frame& frame);

    /// From now on silence is not reported.
    void stopWatching();

    /// The last lines of what the program wrote on its error channel, for messages.
    [[nodiscard]] QString lastWords() const;

    /// Whether any frame has come.
    [[nodiscard]] bool hasAnswered() const { return m_hasAnswered; }

Q_SIGNALS:
    void received(const suite::Frame& frame);

    /// A line came on the error channel.
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
