#include "FramedProcess.h"

#include "PlainText.h"

namespace suite {

namespace {

constexpr int mostLastLines = 3;
constexpr int longestLine = 4096;

} // namespace

FramedProcess::FramedProcess(QObject* parent) : ChildProcess(parent)
{
    m_startLimit.setSingleShot(true);
    connect(&m_startLimit, &QTimer::timeout, this, &FramedProcess::silent);
    connect(&m_heartbeat, &Heartbeat::lost, this, &FramedProcess::silent);
    connect(&m_heartbeat, &Heartbeat::beat, this, [this] { send(Frame()); });
    connect(this, &QProcess::readyReadStandardOutput, this, &FramedProcess::readFrames);
    connect(this, &QProcess::readyReadStandardError, this, &FramedProcess::readComplaints);
    connect(this, qOverload<int, QProcess::ExitStatus>(&QProcess::finished), this,
            &FramedProcess::end);
    connect(
        this, &QProcess::errorOccurred, this,
        [this](QProcess::ProcessError error) {
            if (error == QProcess::FailedToStart) {
                end();
            }
        },
        Qt::QueuedConnection);
}

void FramedProcess::startFramed(const QString& program, const QStringList& arguments,
                                int startLimit)
{
    startInGroup(program, arguments);
    m_startLimit.start(startLimit);
}

void FramedProcess::send(const Frame& frame)
{
    if (state() != QProcess::NotRunning) {
        write(frame.bytes());
    }
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

void FramedProcess::readFrames()
{
    m_reader.add(readAllStandardOutput());
    while (const std::optional<Frame> frame = m_reader.next()) {
        if (!m_hasAnswered) {
            m_hasAnswered = true;
            m_startLimit.stop();
            m_heartbeat.start();
        }
        m_heartbeat.hear();
        Q_EMIT received(*frame);
    }
    if (m_reader.isBroken()) {
        Q_EMIT broken(excerpt(QString::fromUtf8(m_reader.rest().left(longestLine)).simplified()));
    }
}

void FramedProcess::readComplaints()
{
    m_line += readAllStandardError();
    for (int end = m_line.indexOf('\n'); end >= 0; end = m_line.indexOf('\n')) {
        const QString text = QString::fromUtf8(m_line.left(qMin(end, longestLine))).simplified();
        m_line.remove(0, end + 1);
        if (!text.isEmpty()) {
            m_lastLines.append(text);
            m_lastLines = m_lastLines.mid(qMax(0, m_lastLines.size() - mostLastLines));
            Q_EMIT complained(text);
        }
    }
    m_line = m_line.left(longestLine);
}

void FramedProcess::end()
{
    if (m_isDone) {
        return;
    }
    m_isDone = true;
    stopWatching();
    if (state() == QProcess::NotRunning && QProcess::error() != QProcess::FailedToStart) {
        readFrames();
        readComplaints();
    }
    Q_EMIT done();
}

} // namespace suite
