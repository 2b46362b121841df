// SPDX-License-Identifier: MIT
#include "HardwareProbe.h"

#include <Clause.h>
#include <VisibleText.h>

#include <QProcess>

#include <utility>

namespace {

constexpr int usualPatience = 20000;
constexpr int killPatience = 1000; // the system may hold a process that waits for a device
constexpr int longestReason = 300; // drivers have been seen to print pages

// The program prints its reason last.
QString reasonOf(const QByteArray& output)
{
    const QString text = QString::fromLocal8Bit(output).trimmed();
    const QString last = text.section(QLatin1Char('\n'), -1).left(longestReason);
    return last.isEmpty() ? HardwareProbe::tr("OpenGL does not work") : suite::visibleText(last);
}

QString errorOf(QProcess& process)
{
    if (process.exitStatus() == QProcess::CrashExit) {
        return HardwareProbe::tr("OpenGL crashed when it was tried");
    }
    return process.exitCode() == 0 ? QString() : reasonOf(process.readAllStandardOutput());
}

} // namespace

HardwareProbe::HardwareProbe(QString program) : m_program(std::move(program))
{
    m_patience.setSingleShot(true);
    m_patience.setInterval(usualPatience);
    connect(&m_patience, &QTimer::timeout, this,
            [this] { finish(HardwareProbe::tr("OpenGL gave no answer when it was tried")); });
}

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
            finish(HardwareProbe::tr("it could not be tried: %1")
                       .arg(suite::clause(process->errorString())));
        }
    });
    m_patience.start();
    process->start(m_program, {QStringLiteral("--try-opengl")});
}

void HardwareProbe::cancel()
{
    if (m_process) {
        end();
    }
}

void HardwareProbe::end()
{
    m_patience.stop();
    QProcess* const process = m_process.release();
    process->disconnect(this);
    process->kill();
    process->waitForFinished(killPatience);
    if (process->state() == QProcess::NotRunning) {
        process->deleteLater(); // its signal may be the one that is being followed
    } else {
        // To delete it now would be to wait for it.
        connect(process, qOverload<int, QProcess::ExitStatus>(&QProcess::finished), process,
                &QObject::deleteLater);
    }
}

void HardwareProbe::finish(const QString& error)
{
    end();
    Q_EMIT answered(error);
}
