// SPDX-License-Identifier: MIT
#include "Run.h"

#include "ProcessEnd.h"

#include <Clause.h>

#include <QFileInfo>

#include <utility>

namespace {

Run::State stateOf(RunOutcome::Kind outcome)
{
    switch (outcome) {
    case RunOutcome::Kind::Valid:
        return Run::State::Valid;
    case RunOutcome::Kind::Fault:
        return Run::State::Fault;
    case RunOutcome::Kind::NotStarted:
        return Run::State::NotStarted;
    case RunOutcome::Kind::Stopped:
        break;
    }
    return Run::State::Stopped;
}

} // namespace

Run::Run(const Component& component, QString model, common_ActivePtr<ComponentRunner> runner,
         QObject* parent)
    : QObject(parent)
    , m_component(component)
    , m_model(std::move(model))
    , m_lock(m_model)
    , m_runner(std::move(runner))
{}

Run::~Run()
{
    releaseRunner();
}

RunSetup::Readiness Run::setUp(common_RunWrapper::RunOptions options,
                               common_CommonSettingsSet& settings)
{
    return setUpBy([&] {
        return RunSetup::apply(*m_runner, m_component, options, QFileInfo(m_model), settings);
    });
}

RunSetup::Readiness Run::setUpBy(const std::function<RunSetup::Readiness()>& makeReady)
{
    if (!m_lock.take()) {
        return {RunSetup::Obstacle::Busy,
                QStringLiteral("%1 is being run already, by %2").arg(m_model, m_lock.owner())};
    }
    RunSetup::Readiness readiness = makeReady();
    if (!readiness.isReady()) {
        m_runner->deleteTemporaryFiles();
        m_lock.release();
    }
    return readiness;
}

bool Run::start()
{
    startObserving(m_runner.get());
    m_runner->setStopListener([this] { onStopRequested(); });
    if (m_runner->run()) {
        return true;
    }
    m_runner->deleteTemporaryFiles();
    end(RunOutcome::notStarted());
    return false;
}

void Run::refuse(const QString& problem)
{
    m_problem = problem;
    end(RunOutcome::notStarted());
}

void Run::stop(Stopper stopper)
{
    if (isRunning()) {
        if (m_stoppedBy.isEmpty() && stopper == Stopper::Shutdown) {
            m_stoppedBy = QStringLiteral("kestdesk, which was asked to end");
        }
        m_runner->stopProcess();
    }
}

void Run::giveUp()
{
    if (isRunning()) {
        m_problem = QStringLiteral("%1 cannot be ended and goes on").arg(componentName());
        m_runner->abandon();
        end(RunOutcome::stopped());
    }
}

qint64 Run::elapsed() const
{
    return isRunning() ? m_clock.elapsed() : m_duration;
}

void Run::onProcessStarted(const QString& /*executable*/, const QStringList& /*arguments*/)
{
    m_clock.start();
    setState(State::Running);
}

// The run ends when the runner has finished the attempt to start.
void Run::onFailedProcessStarted(const QString& executable, const QStringList& /*arguments*/,
                                 const QString& errorString)
{
    m_problem = QStringLiteral("cannot start %1: %2").arg(executable, suite::clause(errorString));
}

void Run::onProcessMessageReceived(const common_IProcessMessage& message)
{
    switch (message.getType()) {
    case common_IProcessMessage::Percentage:
        m_percentage = RunOutcome::percentage(message.getText(), m_percentage);
        break;
    case common_IProcessMessage::TotalPercentage:
        setTotalPercentage(RunOutcome::percentage(message.getText(), m_totalPercentage));
        break;
    case common_IProcessMessage::File:
        addFile(message.getText());
        break;
    default:
        break;
    }
    Q_EMIT messageReceived(message);
}

void Run::onProcessDone()
{
    end(RunOutcome::of(ProcessEnd::of(*m_runner), m_totalPercentage, m_state == State::Stopping));
}

void Run::onExitCodeChanged(int /*exitCode*/)
{}

// Other owners may keep the runner longer than this run exists.
void Run::releaseRunner()
{
    stopObserving();
    m_runner->setStopListener({});
}

void Run::addFile(const QString& file)
{
    if (!m_knownFiles.contains(file)) {
        m_knownFiles.insert(file);
        m_files.append(file);
    }
}

void Run::setTotalPercentage(int percentage)
{
    if (percentage != m_totalPercentage) {
        m_totalPercentage = percentage;
        Q_EMIT progressed();
    }
}

// By stop() or by the button of the dialog.
void Run::onStopRequested()
{
    if (m_stoppedBy.isEmpty()) {
        m_stoppedBy = QStringLiteral("the user");
    }
    setState(State::Stopping);
}

void Run::setState(State state)
{
    m_state = state;
    Q_EMIT stateChanged(state);
}

void Run::end(const RunOutcome& outcome)
{
    m_duration = elapsed();
    m_outcome = outcome;
    releaseRunner();
    m_lock.release();
    setState(stateOf(outcome.kind()));
    Q_EMIT ended();
}
