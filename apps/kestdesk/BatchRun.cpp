#include "BatchRun.h"

#include "Installation.h"

#include <QDir>
#include <QFileInfo>

#include <utility>

BatchRun::BatchRun(BatchReport& report, Finished finished)
    : m_report(report), m_finished(std::move(finished)), m_runner(new Runner)
{
    startObserving(m_runner.get());
}

void BatchRun::start(const QString& component, const QString& model)
{
    m_report.begin(model);
    const QFileInfo file(model);
    if (!file.exists()) {
        refuse(QStringLiteral("there is no model %1").arg(model));
        return;
    }
    const QString program = Installation::program(component);
    if (program.isEmpty()) {
        refuse(QStringLiteral("there is no component %1 in %2 (KEST_HOME names the installation)")
                   .arg(component, Installation::directory()));
        return;
    }
    m_runner->setExecutable(QFileInfo(program));
    m_runner->setArguments({file.fileName(), QStringLiteral("--run-from-gui")});
    m_runner->setWorkingDirectory(file.absolutePath());
    m_runner->run();
}

void BatchRun::stop()
{
    m_stopRequested = true;
    m_runner->stopProcess();
}

void BatchRun::onProcessStarted(const QString& /*executable*/, const QStringList& /*arguments*/)
{}

void BatchRun::onFailedProcessStarted(const QString& executable, const QStringList& /*arguments*/,
                                      const QString& errorString)
{
    refuse(QStringLiteral("cannot start %1: %2").arg(executable, errorString));
}

void BatchRun::onProcessMessageReceived(const common_IProcessMessage& message)
{
    m_report.add(message);
}

void BatchRun::onProcessDone()
{
    const bool valid = m_report.totalPercentage() == 100 && m_runner->normalExit();
    if (m_stopRequested) {
        finish(Outcome::Stopped);
    } else {
        finish(valid ? Outcome::Valid : Outcome::Fault);
    }
}

void BatchRun::onExitCodeChanged(int /*exitCode*/)
{}

void BatchRun::refuse(const QString& reason)
{
    m_report.complain(reason);
    finish(Outcome::NotStarted);
}

void BatchRun::finish(Outcome outcome)
{
    m_report.end(outcome);
    m_finished(outcome);
}
