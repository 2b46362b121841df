#include "HardwareProbe.h"

#include <QProcess>
#include <QTimer>

#include <utility>

namespace cad {

namespace {

constexpr int UsualPatience = 20000;
constexpr int KillPatience = 1000; // the system may hold a process that waits for a device
constexpr int LongestReason = 300; // drivers have been seen to print pages

// The program prints its reason last.
QString reasonOf(const QByteArray& output)
{
    const QString text = QString::fromLocal8Bit(output).trimmed();
    const QString last = text.section(QLatin1Char('\n'), -1).left(LongestReason);
    return last.isEmpty() ? QStringLiteral("OpenGL does not work") : last;
}

QString errorOf(QProcess& process)
{
    if (process.exitStatus() == QProcess::CrashExit) {
        return QStringLiteral("OpenGL crashed when it was tried");
    }
    return process.exitCode() == 0 ? QString() : reasonOf(process.readAllStandardOutput());
}

} // namespace

HardwareProbe::HardwareProbe(QString program)
    : m_program(std::move(program)), m_patience(UsualPatience)
{}

HardwareProbe::~HardwareProbe()
{
    cancel();
}

void HardwareProbe::start()
{
    if (isRunning()) {
        return;
    }
    m_process = std::make_unique<QProcess>();
    QProcess* const process = m_process.get();
    process->setProcessChannelMode(QProcess::ForwardedErrorChannel);
    connect(process, qOverload<int, QProcess::ExitStatus>(&QProcess::finished), this,
            [this, process] { finish(errorOf(*process)); });
    connect(process, &QProcess::errorOccurred, this, [this, process](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart) {
            finish(QStringLiteral("it could not be tried: %1").arg(process->errorString()));
        }
    });
    QTimer::singleShot(m_patience, process, [this] {
        finish(QStringLiteral("OpenGL gave no answer when it was tried"));
    });
    process->start(m_program, {QStringLiteral("--try-opengl")});
}

void HardwareProbe::cancel()
{
    if (m_process) {
        end(*m_process);
        m_process.reset();
    }
}

void HardwareProbe::end(QProcess& process)
{
    process.disconnect(this);
    process.kill();
    process.waitForFinished(KillPatience);
}

void HardwareProbe::finish(const QString& error)
{
    // It may be this process whose signal is being followed.
    QProcess* const process = m_process.release();
    end(*process);
    process->deleteLater();
    Q_EMIT answered(error);
}

} // namespace cad
