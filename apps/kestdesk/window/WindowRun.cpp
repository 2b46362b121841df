#include "WindowRun.h"

#include "RunResults.h"
#include "RunSetup.h"

#include <VisibleText.h>

#include <common_CommonSettingsSet.h>
#include <common_HelpClient.h>
#include <common_KestProcessDialog.h>
#include <common_ServiceOf.h>
#include <common_UserQuery.h>

#include <QFileInfo>

#include <algorithm>
#include <csignal>
#include <utility>

namespace {

constexpr int complete = 100;

// clang-format off
const struct { WindowRun::State state; const char* text; } stateTexts[] = {
    {WindowRun::State::NotStarted, "not started"},
    {WindowRun::State::Running,    "running"},
    {WindowRun::State::Stopping,   "stopping, still running"},
    {WindowRun::State::Valid,      "valid"},
    {WindowRun::State::Fault,      "fault"},
    {WindowRun::State::Stopped,    "stopped"},
};
// clang-format on

// Of a component that was asked to end: one that puts its files in order first says so by its exit
// code, another one dies of the signal.
bool isOfTerminated(int exitCode)
{
    constexpr int shellOffset = 128;
    return exitCode == SIGTERM || exitCode == shellOffset + SIGTERM;
}

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
    const RunSetup::Readiness readiness =
        RunSetup::apply(*m_runner, m_component, options, QFileInfo(m_model), settings);
    if (!readiness.isReady) {
        m_runner->discardTemporaryFiles();
        if (!readiness.complaint.isEmpty()) {
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

void WindowRun::stop()
{
    if (m_state == State::Running) {
        setState(State::Stopping);
        m_runner->stopProcess();
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

QString WindowRun::stateText() const
{
    const auto* row =
        std::find_if(std::begin(stateTexts), std::end(stateTexts),
                     [this](const auto& candidate) { return candidate.state == m_state; });
    return QLatin1String(row->text);
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
    const int percentage = std::clamp(message.getText().toInt(), 0, complete);
    if (percentage != m_totalPercentage) {
        m_totalPercentage = percentage;
        Q_EMIT changed();
    }
}

void WindowRun::onProcessDone()
{
    m_duration = m_clock.elapsed();
    m_results = RunResults::tables(m_files, QFileInfo(m_model).absolutePath());
    const bool isValid = m_totalPercentage == complete && m_runner->normalExit();
    const bool isStopped = m_state == State::Stopping || isOfTerminated(m_runner->exitCode());
    setState(isValid ? State::Valid : isStopped ? State::Stopped : State::Fault);
    Q_EMIT ended();
}

void WindowRun::onExitCodeChanged(int /*exitCode*/)
{}

void WindowRun::setState(State state)
{
    m_state = state;
    Q_EMIT changed();
}
