#include "BatchRun.h"

#include "Descendants.h"
#include "ProcessEnd.h"

#include <QDir>
#include <QFileInfo>

#include <utility>

namespace {

const QString useLocal = QStringLiteral("\"kestdesk machines use-local\"");

} // namespace

BatchRun::BatchRun(BatchReport& report, Finished finished)
    : m_report(report), m_finished(std::move(finished)), m_runner(new BatchRunner)
{}

void BatchRun::start(const Component& component, common_RunWrapper::RunOptions options,
                     const QString& model, common_CommonSettingsSet& settings)
{
    m_component = QLatin1String(component.name);
    m_report.begin(model);
    const RunSetup::Readiness readiness =
        RunSetup::apply(*m_runner, component, options, QFileInfo(model), settings);
    if (readiness.isReady()) {
        run();
        return;
    }
    m_runner->discardTemporaryFiles();
    refuse(complaint(readiness));
}

QString BatchRun::complaint(const RunSetup::Readiness& readiness) const
{
    switch (readiness.obstacle) {
    case RunSetup::Obstacle::Told:
        return QStringLiteral("%1 was not started").arg(m_component);
    case RunSetup::Obstacle::NoFile:
        return QStringLiteral(
                   "%1 was not started; %2 makes a machines file that names this machine")
            .arg(m_component, useLocal);
    case RunSetup::Obstacle::NoHost:
        return QStringLiteral(
                   "%1; %2 lets it name this machine, \"kestdesk machines edit\" changes "
                   "it")
            .arg(readiness.complaint, useLocal);
    default:
        return readiness.complaint;
    }
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
    m_runner->stopProcess();
}

void BatchRun::kill()
{
    Descendants::killAll();
}

void BatchRun::giveUp()
{
    if (m_runner->isRunning()) {
        stopObserving();
        m_runner->abandon();
        m_report.complain(QStringLiteral("%1 cannot be ended and goes on").arg(m_component));
        finish(RunOutcome::stopped());
    }
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
    finish(RunOutcome::of(ProcessEnd::of(*m_runner), m_report.totalPercentage(),
                          m_runner->isStopRequested()));
}

void BatchRun::onExitCodeChanged(int /*exitCode*/)
{}

void BatchRun::refuse(const QString& reason)
{
    m_report.complain(reason);
    finish(RunOutcome::notStarted());
}

void BatchRun::finish(const RunOutcome& outcome)
{
    m_report.end(outcome, m_component);
    m_finished(outcome.kind());
}
