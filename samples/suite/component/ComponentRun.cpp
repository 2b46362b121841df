#include "ComponentRun.h"

#include <QCoreApplication>

namespace suite {

namespace {

constexpr int mostErrorOutput = 4096; // bytes

} // namespace

ComponentRun::ComponentRun(QObject* parent) : ChildProcess(parent)
{
    setStandardInputFile(QProcess::nullDevice());
    connect(this, &QProcess::readyReadStandardOutput, this, &ComponentRun::readLines);
    connect(this, &QProcess::readyReadStandardError, this, [this] {
        m_errorOutput += readAllStandardError().left(mostErrorOutput - m_errorOutput.size());
    });
    connect(this, qOverload<int, QProcess::ExitStatus>(&QProcess::finished), this,
            &ComponentRun::endRun);
    connect(
        this, &QProcess::errorOccurred, this,
        [this](QProcess::ProcessError error) {
            if (error == QProcess::FailedToStart) {
                endRun();
            }
        },
        Qt::QueuedConnection);
}

void ComponentRun::startComponent(const QString& name, const QStringList& arguments)
{
    startInGroup(QCoreApplication::applicationDirPath() + QLatin1Char('/') + name, arguments);
}

bool ComponentRun::isSuccess() const
{
    return m_isDone && hasEndedByItself() && exitCode() == 0;
}

bool ComponentRun::hasEndedByItself() const
{
    return QProcess::error() != QProcess::FailedToStart && exitStatus() == QProcess::NormalExit;
}

QString ComponentRun::error() const
{
    if (!m_firstError.isEmpty()) {
        return m_firstError;
    }
    if (QProcess::error() == QProcess::FailedToStart) {
        return QStringLiteral("'%1' cannot be started, %2").arg(program(), errorString());
    }
    const QString how =
        exitStatus() == QProcess::CrashExit
            ? QStringLiteral("'%1' crashed").arg(program())
            : QStringLiteral("'%1' ended with code %2").arg(program()).arg(exitCode());
    const QString said = QString::fromUtf8(m_errorOutput).simplified();
    return said.isEmpty() ? how : how + QStringLiteral(", ") + said;
}

void ComponentRun::readLines()
{
    setReadChannel(QProcess::StandardOutput);
    while (canReadLine()) {
        QByteArray bytes = readLine();
        bytes.chop(1);
        const MarkerLine line = MarkerLine::parse(bytes);
        if (line.marker == Marker::Error && m_firstError.isEmpty()) {
            m_firstError = line.body;
        }
        Q_EMIT printed(line);
    }
}

void ComponentRun::endRun()
{
    if (!m_isDone) {
        m_isDone = true;
        readLines();
        Q_EMIT done();
    }
}

} // namespace suite
