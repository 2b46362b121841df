#include "WindowRun.h"

#include "MachinesOffer.h"
#include "ProcessEnd.h"
#include "RunResults.h"

#include <VisibleText.h>

#include <common_CommonSettingsSet.h>
#include <common_HelpClient.h>
#include <common_KestProcessDialog.h>
#include <common_ServiceOf.h>
#include <common_UserQuery.h>

#include <QFileInfo>

#include <algorithm>
#include <utility>

namespace {

// clang-format off
const struct { WindowRun::State state; const char* text; } stateTexts[] = {
    {WindowRun::State::NotStarted, "not started"},
    {WindowRun::State::Running,    "running"},
    {WindowRun::State::Stopping,   "stopping, still running"},
};

const struct { RunOutcome::Kind kind; WindowRun::State state; } outcomeStates[] = {
    {RunOutcome::Kind::Valid,   WindowRun::State::Valid},
    {RunOutcome::Kind::Fault,   WindowRun::State::Fault},
    {RunOutcome::Kind::Stopped, WindowRun::State::Stopped},
};
// clang-format on

// As a sentence.
void tellNotStarted(QString complaint, QWidget* window)
{
    complaint = suite::visibleText(complaint);
    complaint[0] = complaint.at(0).toUpper();
    common_UserQuery(QStringLiteral("Run not started"), complaint + QLatin1Char('.'),
                     common_UserQuery::Error, window, QString())
        .display();
}

} // namespace

WindowRun::WindowRun(const Component& component, QString model, QObject* parent)
    : QObject(parent), m_component(component), m_model(std::move(model)), m_runner(new WindowRunner)
{}

WindowRun::~WindowRun()
{
    stopObserving();
}

bool WindowRun::start(common_RunWrapper::RunOptions options, common_CommonSettingsSet& settings,
                      QWidget* window)
{
    const RunSetup::Readiness readiness = setUp(options, settings, window);
    if (!readiness.isReady()) {
        if (readiness.obstacle == RunSetup::Obstacle::Complaint) {
            tellNotStarted(readiness.complaint, window);
        }
        return false;
    }
    m_dialog = new common_KestProcessDialog(m_runner, window);
    GET_SERVICE(common_HelpClient)->registerPage(m_dialog, QStringLiteral("run-window"));
    startObserving(m_runner.get());
    if (!m_runner->run()) {
        stopObserving();
        m_runner->discardTemporaryFiles();
        delete m_dialog;
        return false;
    }
    return true;
}

// Again after the user has mended what kept it from starting.
RunSetup::Readiness WindowRun::setUp(common_RunWrapper::RunOptions options,
                                     common_CommonSettingsSet& settings, QWidget* window)
{
    for (;;) {
        RunSetup::Readiness readiness =
            RunSetup::apply(*m_runner, m_component, options, QFileInfo(m_model), settings);
        if (readiness.isReady()) {
            return readiness;
        }
        m_runner->discardTemporaryFiles();
        if (readiness.obstacle != RunSetup::Obstacle::NoHost ||
            !MachinesOffer::isTaken(readiness.complaint, window)) {
            return readiness;
        }
    }
}

void WindowRun::stop()
{
    if (isRunning()) {
        m_runner->stopProcess();
        Q_EMIT changed();
    }
}

void WindowRun::giveUp()
{
    if (isRunning()) {
        stopObserving();
        m_runner->abandon();
        end(RunOutcome::stopped());
    }
}

bool WindowRun::showDialog()
{
    if (m_dialog.isNull()) {
        return false;
    }
    m_dialog->showNormal();
    m_dialog->raise();
    m_dialog->activateWindow();
    return true;
}

qint64 WindowRun::elapsed() const
{
    return isRunning() ? m_clock.elapsed() : m_duration;
}

// The dialog may have stopped it.
WindowRun::State WindowRun::state() const
{
    return isRunning() && m_runner->isStopRequested() ? State::Stopping : m_state;
}

QString WindowRun::stateText() const
{
    const State shown = state();
    const auto* row = std::find_if(std::begin(stateTexts), std::end(stateTexts),
                                   [shown](const auto& each) { return each.state == shown; });
    return row == std::end(stateTexts) ? m_outcome.title() : QLatin1String(row->text);
}

QString WindowRun::explanation() const
{
    return m_outcome.reason().isEmpty()
               ? stateText()
               : QStringLiteral("%1. It %2.").arg(m_outcome.word(), m_outcome.reason());
}

void WindowRun::onProcessStarted(const QString& /*executable*/, const QStringList& /*arguments*/)
{
    m_clock.start();
    setState(State::Running);
}

void WindowRun::onFailedProcessStarted(const QString& /*executable*/,
                                       const QStringList& /*arguments*/,
                                       const QString& /*errorString*/)
{
    // The dialog tells the user.
}

void WindowRun::onProcessMessageReceived(const common_IProcessMessage& message)
{
    if (message.getType() == common_IProcessMessage::File) {
        m_files.append(message.getText());
    }
    if (message.getType() != common_IProcessMessage::TotalPercentage) {
        return;
    }
    const int percentage = RunOutcome::percentage(message.getText(), m_totalPercentage);
    if (percentage != m_totalPercentage) {
        m_totalPercentage = percentage;
        Q_EMIT changed();
    }
}

void WindowRun::onProcessDone()
{
    end(RunOutcome::of(ProcessEnd::of(*m_runner), m_totalPercentage, m_runner->isStopRequested()));
}

void WindowRun::onExitCodeChanged(int /*exitCode*/)
{}

void WindowRun::setState(State state)
{
    m_state = state;
    Q_EMIT changed();
}

void WindowRun::end(const RunOutcome& outcome)
{
    m_duration = m_clock.elapsed();
    m_results = RunResults::tables(m_files, QFileInfo(m_model).absolutePath());
    m_outcome = outcome;
    const auto* row =
        std::find_if(std::begin(outcomeStates), std::end(outcomeStates),
                     [&outcome](const auto& each) { return each.kind == outcome.kind(); });
    setState(row->state);
    Q_EMIT ended();
}
