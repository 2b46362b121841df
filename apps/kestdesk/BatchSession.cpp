#include "BatchSession.h"

#include "BatchRun.h"

#include <KSignalHandler>
#include <QCoreApplication>

#include <csignal>
#include <utility>

namespace {

constexpr int exitValid = 0;
constexpr int exitFault = 1;
constexpr int exitNotStarted = 2;
constexpr int exitStopped = 130; // what shells give for a program that Ctrl+C ended

} // namespace

BatchSession::BatchSession(QString component, QStringList models)
    : m_component(std::move(component)), m_models(std::move(models))
{
    KSignalHandler* const signalHandler = KSignalHandler::self();
    for (const int signal : {SIGINT, SIGTERM}) {
        signalHandler->watchSignal(signal);
    }
    connect(signalHandler, &KSignalHandler::signalReceived, this, &BatchSession::onStopRequested);
}

BatchSession::~BatchSession() = default;

int BatchSession::exec()
{
    QMetaObject::invokeMethod(this, &BatchSession::runNext, Qt::QueuedConnection);
    return QCoreApplication::exec();
}

void BatchSession::runNext()
{
    if (m_stopRequested || m_outcomes.size() == m_models.size()) {
        if (m_models.size() > 1) {
            m_report.summarise(m_outcomes);
        }
        QCoreApplication::exit(exitCode());
        return;
    }
    m_run =
        std::make_unique<BatchRun>(m_report, [this](Outcome outcome) { onRunFinished(outcome); });
    m_run->start(m_component, m_models[m_outcomes.size()]);
}

// The run is still in its last callback: the next one begins when that has returned.
void BatchSession::onRunFinished(Outcome outcome)
{
    m_outcomes.append(outcome);
    QMetaObject::invokeMethod(this, &BatchSession::runNext, Qt::QueuedConnection);
}

void BatchSession::onStopRequested()
{
    if (std::exchange(m_stopRequested, true)) {
        QCoreApplication::exit(exitStopped);
        return;
    }
    m_report.complain(QStringLiteral("stopping; once more ends at once"));
    if (m_run) {
        m_run->stop();
    }
}

int BatchSession::exitCode() const
{
    if (m_stopRequested) {
        return exitStopped;
    }
    if (m_outcomes.contains(Outcome::NotStarted)) {
        return exitNotStarted;
    }
    return m_outcomes.contains(Outcome::Fault) ? exitFault : exitValid;
}
