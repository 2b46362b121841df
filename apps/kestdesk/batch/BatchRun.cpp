#include "BatchRun.h"

#include "Descendants.h"
#include "RunSetup.h"

#include <QDir>
#include <QFileInfo>

#include <utility>

BatchRun::BatchRun(BatchReport& report, Finished finished)
    : m_report(report), m_finished(std::move(finished)), m_runner(new BatchRunner)
{}

void BatchRun::start(const Component& component, common_RunWrapper::RunOptions options,
                     const QString& model, common_CommonSettingsSet& settings)
{
    m_report.begin(model);
    const RunSetup::Readiness readiness =
        RunSetup::apply(*m_runner, component, options, QFileInfo(model), settings);
    if (readiness.isReady) {
        run();
        return;
    }
    m_runner->discardTemporaryFiles();
    refuse(readiness.complaint.isEmpty()
               ? QStringLiteral("%1 was not started").arg(QLatin1String(component.name))
               : readiness.complaint);
}

void BatchRun::run()
{
    startObserving(m_runner.get());
    if (!m_runner->run()) {
        stopObserving();
        m_runner->discardTemporaryFiles();
    }
}

void BatchRun::stop()
{
    m_stopRequested = true;
    m_runner->stopProcess();
}

void BatchRun::kill()
{
    m_stopRequested = true;
    Descendants::killAll();
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
