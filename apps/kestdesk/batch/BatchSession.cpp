#include "BatchSession.h"

#include "BatchRun.h"
#include "Descendants.h"
#include "StopSignals.h"

#include <common_IApplicationInfo.h>
#include <common_ServiceOf.h>

#include <QCoreApplication>
#include <QTimer>

#include <utility>

namespace {

constexpr int exitValid = 0;
constexpr int exitFault = 1;
constexpr int exitNotStarted = 2;
constexpr int exitStopped = 130; // what shells give for a program that Ctrl+C ended

constexpr int graceTime = 2000; // milliseconds that processes may take to end
constexpr int killTime = 2000;  // milliseconds after which a killed one is given up

} // namespace

BatchSession::BatchSession(const Component& component, common_RunWrapper::RunOptions options,
                           QStringList models)
    : m_component(component)
    , m_options(options)
    , m_models(std::move(models))
    , m_settings(GET_SERVICE(common_IApplicationInfo)->userSettingsDirectory(),
                 GET_SERVICE(common_IApplicationInfo)->applicationName())
{
    connect(&m_ending, &DescendantsEnding::ended, this, &BatchSession::leave);
    StopSignals::watch(this, [this] { onStopRequested(); });
}

BatchSession::~BatchSession() = default;

int BatchSession::exec()
{
    QMetaObject::invokeMethod(this, &BatchSession::runNext, Qt::QueuedConnection);
    return QCoreApplication::exec();
}

void BatchSession::runNext()
{
    if (m_stopRequested) {
        m_ending.start(m_killed ? 0 : graceTime); // what the component has left behind
        return;
    }
    if (m_outcomes.size() == m_models.size()) {
        leave();
        return;
    }
    m_run = std::make_unique<BatchRun>(
        m_report, [this](RunOutcome::Kind outcome) { onRunFinished(outcome); });
    m_run->start(m_component, m_options, m_models[m_outcomes.size()], m_settings);
}

// The run is still in its last callback: the next one begins when that has returned.
void BatchSession::onRunFinished(RunOutcome::Kind outcome)
{
    m_outcomes.append(outcome);
    QMetaObject::invokeMethod(this, &BatchSession::runNext, Qt::QueuedConnection);
}

void BatchSession::onStopRequested()
{
    if (!m_stopRequested) {
        stop();
    } else if (!m_killed) {
        kill();
    }
}

void BatchSession::stop()
{
    m_stopRequested = true;
    m_report.complain(QStringLiteral("stopping; once more ends at once"));
    Descendants::adoptOrphans();
    if (m_run) {
        m_run->stop();
    }
}

void BatchSession::kill()
{
    m_killed = true;
    if (m_ending.isActive()) {
        m_ending.hurry();
    } else if (m_run) {
        m_run->kill();
        QTimer::singleShot(killTime, this, &BatchSession::giveUp);
    }
}

void BatchSession::giveUp()
{
    m_run->giveUp();
}

void BatchSession::leave()
{
    if (m_models.size() > 1) {
        m_report.summarise(m_outcomes);
    }
    QCoreApplication::exit(exitCode());
}

// The worst of the outcomes; models that were not begun have been stopped.
int BatchSession::exitCode() const
{
    if (m_outcomes.contains(RunOutcome::Kind::Stopped) || m_outcomes.size() < m_models.size()) {
        return exitStopped;
    }
    if (m_outcomes.contains(RunOutcome::Kind::NotStarted)) {
        return exitNotStarted;
    }
    return m_outcomes.contains(RunOutcome::Kind::Fault) ? exitFault : exitValid;
}
