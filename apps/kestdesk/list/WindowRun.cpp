// SPDX-License-Identifier: MIT
#include "WindowRun.h"

#include "ArchiveLimits.h"
#include "MachinesOffer.h"
#include "ReasonText.h"
#include "RecordedRun.h"
#include "RunResults.h"
#include "WindowRunner.h"

#include <VisibleText.h>

#include <common_CommonSettingsSet.h>
#include <common_HelpClient.h>
#include <common_KestProcessDialog.h>
#include <common_ServiceOf.h>
#include <common_UserQuery.h>

#include <QFileInfo>

#include <algorithm>

namespace {

// For the other states the outcome is more precise.
// clang-format off
const struct { Run::State state; const char* text; } stateTexts[] = {
    {Run::State::Waiting,    QT_TRANSLATE_NOOP("WindowRun", "not started")},
    {Run::State::Running,    QT_TRANSLATE_NOOP("WindowRun", "running")},
    {Run::State::Stopping,   QT_TRANSLATE_NOOP("WindowRun", "stopping, still running")},
    {Run::State::NotStarted, QT_TRANSLATE_NOOP("WindowRun", "not started")},
};
// clang-format on

// As a sentence.
void showNotStarted(QString problem, QWidget* window)
{
    problem = suite::visibleText(ReasonText::shown(problem));
    problem[0] = problem.at(0).toUpper();
    common_UserQuery(WindowRun::tr("Run not started"), problem + QLatin1Char('.'),
                     common_UserQuery::Error, window, QString())
        .display();
}

// Repeats the set-up after the user has solved the problem.
RunSetup::Readiness readinessAfter(const std::function<RunSetup::Readiness()>& setUp,
                                   QWidget* window)
{
    for (;;) {
        RunSetup::Readiness readiness = setUp();
        if (readiness.obstacle != RunSetup::Obstacle::NoHost ||
            !MachinesOffer::ask(readiness.problem, window)) {
            return readiness;
        }
    }
}

} // namespace

WindowRun::WindowRun(const Component& component, const QString& model, QObject* parent)
    : QObject(parent)
    , m_run(component, model, common_ActivePtr<ComponentRunner>(new WindowRunner))
    , m_recorder(m_run, RunRecorder::Face::Window, RunArchive::ofUser(), ArchiveLimits::ofUser())
    , m_forecast(m_run, RunArchive::ofUser())
{
    connect(&m_run, &Run::stateChanged, this, &WindowRun::onStateChanged);
    connect(&m_run, &Run::progressed, this, &WindowRun::changed);
    connect(&m_run, &Run::messageReceived, this, &WindowRun::onMessageReceived);
    connect(&m_forecast, &RunForecast::changed, this, &WindowRun::changed);
    connect(&m_run, &Run::ended, this, &WindowRun::ended);
    connect(&m_recorder, &RunRecorder::created, this, &WindowRun::changed);
    connect(&m_recorder, &RunRecorder::created, this, &WindowRun::recordMade);
    connect(&m_recorder, &RunRecorder::failed, this, &WindowRun::onRecordFailed);
    connect(&m_recorder, &RunRecorder::finished, this, &WindowRun::changed);
    connect(&m_recorder, &RunRecorder::finished, this, &WindowRun::recorded);
}

bool WindowRun::start(common_RunWrapper::RunOptions options, common_CommonSettingsSet& settings,
                      QWidget* window)
{
    m_recorder.setRunOptions(options);
    return start([&] { return m_run.setUp(options, settings); }, window);
}

bool WindowRun::startAgain(const RunRecord& record, common_CommonSettingsSet& settings,
                           QWidget* window)
{
    m_recorder.setRepeated(record);
    return start([&] { return RecordedRun::setUp(m_run, record, settings); }, window);
}

bool WindowRun::start(const SetUp& setUp, QWidget* window)
{
    const RunSetup::Readiness readiness = readinessAfter(setUp, window);
    if (!readiness.isReady()) {
        if (readiness.obstacle == RunSetup::Obstacle::Problem ||
            readiness.obstacle == RunSetup::Obstacle::Busy) {
            showNotStarted(readiness.problem, window);
        }
        m_run.refuse(readiness.problem);
        return false;
    }
    makeDialog(window);
    if (!m_run.start()) { // the dialog has shown the reason
        delete m_dialog;
        return false;
    }
    return true;
}

bool WindowRun::isRecorded() const
{
    return m_recorder.isFinished() || m_run.state() == Run::State::Waiting;
}

void WindowRun::makeDialog(QWidget* window)
{
    m_dialog = new common_KestProcessDialog(m_run.runner(), window);
    m_dialog->setTitle(m_title);
    GET_SERVICE(common_HelpClient)->registerPage(m_dialog, QStringLiteral("run-window"));
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

QString WindowRun::stateText() const
{
    const auto* row =
        std::find_if(std::begin(stateTexts), std::end(stateTexts),
                     [this](const auto& each) { return each.state == m_run.state(); });
    return row == std::end(stateTexts) ? ReasonText::shown(m_run.outcome().title()) : tr(row->text);
}

QString WindowRun::explanation() const
{
    const RunOutcome& outcome = m_run.outcome();
    return outcome.reason().isEmpty()
               ? stateText()
               : tr("%1. It %2.")
                     .arg(ReasonText::shown(outcome.word()), ReasonText::shown(outcome.reason()));
}

void WindowRun::onMessageReceived(const common_IProcessMessage& message)
{
    if (message.getType() == common_IProcessMessage::Error) {
        ++m_errors;
    } else if (message.getType() == common_IProcessMessage::Warning) {
        ++m_warnings;
    }
}

void WindowRun::onRecordFailed(const QString& reason)
{
    m_recordProblem =
        tr("The record of this run is not complete: %1.").arg(ReasonText::shown(reason));
    Q_EMIT recordFailed();
}

void WindowRun::onStateChanged()
{
    if (!m_run.isRunning()) {
        m_results = RunResults::tables(m_run.files(), QFileInfo(m_run.model()).absolutePath());
    }
    Q_EMIT changed();
}
