// SPDX-License-Identifier: MIT
#include "FramedProcess.h"

#include "PlainText.h"

namespace suite {

namespace {

constexpr int mostLastLines = 3;
constexpr int longestLine = 4096;

} // namespace

FramedProcess::FramedProcess(QObject* parent) : ChildProcess(parent)
{
    setInput(Input::Written);
    m_startLimit.setSingleShot(true);
    connect(&m_startLimit, &QTimer::timeout, this, &FramedProcess::silent);
    connect(&m_heartbeat, &Heartbeat::lost, this, &FramedProcess::silent);
    connect(&m_heartbeat, &Heartbeat::beat, this, [this] { send(Frame()); });
    connect(this, &ChildProcess::outputRead, this, &FramedProcess::readFrames);
    connect(this, &ChildProcess::errorsRead, this, &FramedProcess::readErrorLines);
    connect(this, &ChildProcess::ended, this, &FramedProcess::stopWatching);
}

void FramedProcess::startFramed(const QString& program, const QStringList& arguments,
                                int startLimit)
{
    if (start(program, arguments)) {
        m_startLimit.start(startLimit);
    }
}

void FramedProcess::send(const Frame& frame)
{
    write(frame.bytes());
}

void FramedProcess::stopWatching()
{
    m_startLimit.stop();
    m_heartbeat.stop();
}

QString FramedProcess::lastWords() const
{
    return m_lastLines.join(QStringLiteral(", "));
}

void FramedProcess::readFrames(const QByteArray& bytes)
{
    m_reader.add(bytes);
    while (const std::optional<Frame> frame = m_reader.next()) {
        if (!m_hasAnswered) {
            m_hasAnswered = true;
            m_startLimit.stop();
            m_heartbeat.start();
        }
        m_heartbeat.noteSign();
        Q_EMIT received(*frame);
    }
    if (m_reader.isBroken()) {
        Q_EMIT broken(excerpt(QString::fromUtf8(m_reader.rest().left(longestLine)).simplified()));
    }
}

void FramedProcess::readErrorLines(const QByteArray& bytes)
{
    m_line += bytes;
    for (int end = m_line.indexOf('\n'); end >= 0; end = m_line.indexOf('\n')) {
        const QString text = QString::fromUtf8(m_line.left(qMin(end, longestLine))).simplified();
        m_line.remove(0, end + 1);
        if (!text.isEmpty()) {
            m_lastLines.append(text);
            m_lastLines = m_lastLines.mid(qMax(0, m_lastLines.size() - mostLastLines));
            Q_EMIT errorLineRead(text);
        }
    }
    m_line = m_line.left(longestLine);
}

} // namespace suite
