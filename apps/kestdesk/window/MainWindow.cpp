#include "MainWindow.h"

#include "ApplicationMenu.h"
#include "ArchiveLimits.h"
#include "ArchiveWatch.h"
#include "Component.h"
#include "Descendants.h"
#include "FileDrop.h"
#include "HelpMenu.h"
#include "LaunchChoice.h"
#include "MachinesDialog.h"
#include "MainMenu.h"
#include "Notifier.h"
#include "OpenDialog.h"
#include "RecentMenu.h"
#include "RunActions.h"
#include "RunAgain.h"
#include "RunListPart.h"
#include "RunListView.h"
#include "RunPanel.h"
#include "RunStops.h"
#include "RunTableModel.h"
#include "SessionRuns.h"
#include "UnreadableModel.h"
#include "WindowRun.h"
#include "WindowTitle.h"

#include <VisibleText.h>

#include <common_HelpClient.h>
#include <common_IIconUtility.h>
#include <common_ServiceOf.h>
#include <common_UserQuery.h>

#include <QApplication>
#include <QCloseEvent>
#include <QFileInfo>
#include <QLabel>
#include <QMenuBar>
#include <QStatusBar>
#include <QVBoxLayout>

#include <algorithm>

namespace {

const QString applicationName = QStringLiteral("kestdesk");

QString namesOf(const QStringList& paths)
{
    QStringList names;
    std::transform(paths.begin(), paths.end(), std::back_inserter(names), suite::visibleFileName);
    return names.join(QStringLiteral(", "));
}

QString outcomeText(const WindowRun& run)
{
    QString text = QStringLiteral("%1 of %2: %3")
                       .arg(run.run().componentName(), suite::visibleFileName(run.run().model()),
                            run.explanation());
    if (!run.recordProblem().isEmpty()) {
        text += QLatin1Char(text.endsWith(QLatin1Char('.')) ? ' ' : '.') + run.recordProblem();
    }
    return text;
}

} // namespace

MainWindow::MainWindow(Start start)
    : m_runs(new RunTableModel(this))
    , m_applications(new ApplicationMenu(this))
    , m_again(new RunAgain(RunArchive::ofUser(), this))
    , m_sessionRuns(std::make_unique<SessionRuns>(m_runs, m_shutdown, this))
{
    setObjectName(QStringLiteral("kestdeskWindow"));
    setWindowIcon(GET_SERVICE(common_IIconUtility)->getIcon(applicationName));
    connect(new FileDrop(this), &FileDrop::dropped, this, &MainWindow::openModels);
    makeContent();
    makeMenus();
    makeChoice();
    connectRuns();
    connectShutdown();
    restoreSession(start);
    m_listPart->archive()->start(ArchiveLimits::ofUser());
    updateControls();
}

MainWindow::~MainWindow()
{
    m_sessionRuns.reset(); // while the window is whole: the runs report their changes to it
}

void MainWindow::makeContent()
{
    auto* content = new QWidget(this);
    auto* layout = new QVBoxLayout(content);
    makePanel(content);
    layout->addWidget(m_panel);
    makeRunListPart(content);
    layout->addWidget(m_listPart, 1);
    setCentralWidget(content);
    makeOutcomeLabel();
    GET_SERVICE(common_HelpClient)->registerPage(this, applicationName);
}

void MainWindow::makePanel(QWidget* content)
{
    m_panel = new RunPanel(content);
    connect(m_panel, &RunPanel::openRequested, this, &MainWindow::chooseModel);
    connect(m_panel, &RunPanel::runRequested, this, &MainWindow::run);
    connect(m_panel, &RunPanel::stopRequested, this, &MainWindow::stopRun);
    connect(m_panel, &RunPanel::targetChanged, this, &MainWindow::updateControls);
}

void MainWindow::makeRunListPart(QWidget* content)
{
    m_listPart = new RunListPart(m_runs, RunArchive::ofUser(), content);
    m_listPart->addButton(m_applications->makeResultsButton(m_listPart));
    m_list = m_listPart->list();
    connect(m_list, &QTableView::activated, this, &MainWindow::showRun);
    connect(m_list, &RunListView::selectedRunChanged, this, &MainWindow::updateControls);
}

void MainWindow::makeOutcomeLabel()
{
    m_outcome = new QLabel(this);
    m_outcome->setObjectName(QStringLiteral("outcomeLabel"));
    m_outcome->setTextFormat(Qt::PlainText); // names of files are in it
    m_outcome->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred); // cut, not widened
    statusBar()->addWidget(m_outcome, 1);
}

void MainWindow::makeMenus()
{
    m_menu = new MainMenu(this, m_session.recentFiles());
    connect(m_menu, &MainMenu::openRequested, this, &MainWindow::chooseModel);
    connect(m_menu->recentMenu(), &RecentMenu::fileChosen, this,
            [this](const QString& path) { openModel(path); });
    connect(m_menu, &MainMenu::quitRequested, this, &QWidget::close);
    connect(m_menu, &MainMenu::runRequested, this, &MainWindow::run);
    connect(m_menu, &MainMenu::stopRequested, this, &MainWindow::stopRun);
    connect(m_menu, &MainMenu::showRunRequested, this, &MainWindow::showRun);
    connect(m_menu, &MainMenu::clearRequested, this, &MainWindow::clearEndedRuns);
    connect(m_menu, &MainMenu::launchOptionsRequested, this, &MainWindow::editLaunchOptions);
    connect(m_menu, &MainMenu::machinesFileRequested, this, &MainWindow::editMachinesFile);
    m_list->addAction(m_menu->showRunAction());
    makeRunActions();
    addApplicationMenu();
    HelpMenu::addTo(*this, QStringLiteral("Runs the suite's solver components on models."));
}

void MainWindow::makeRunActions()
{
    auto* const actions = new RunActions(m_listPart, m_menu->runMenu(), this);
    connect(actions, &RunActions::recordRequested, this, &MainWindow::showRecord);
    connect(actions, &RunActions::againRequested, m_again, &RunAgain::request);
    connect(actions, &RunActions::reported, this, &MainWindow::showOutcome);
    connect(m_again, &RunAgain::ready, this, &MainWindow::runAgain);
    connect(m_again, &RunAgain::failed, this, &MainWindow::showOutcome);
}

void MainWindow::addApplicationMenu()
{
    menuBar()->addMenu(m_applications);
    m_list->addAction(m_applications->resultsAction());
    connect(m_applications, &QMenu::aboutToShow, this, &MainWindow::updateControls);
    connect(m_applications, &ApplicationMenu::launched, this, &MainWindow::showOutcome);
}

void MainWindow::makeChoice()
{
    m_choice = new LaunchChoice(m_panel, m_menu, this);
    connect(m_choice, &LaunchChoice::saved, this, &MainWindow::onChoiceSaved);
}

void MainWindow::connectRuns()
{
    ArchiveWatch* const archive = m_listPart->archive();
    SessionRuns* const runs = m_sessionRuns.get();
    connect(runs, &SessionRuns::added, m_list, &RunListView::select);
    connect(runs, &SessionRuns::changed, this, &MainWindow::updateControls);
    connect(runs, &SessionRuns::ended, this, &MainWindow::onRunEnded);
    connect(runs, &SessionRuns::recordFailed, this, &MainWindow::onRecordFailed);
    connect(runs, &SessionRuns::archiveChanged, archive, &ArchiveWatch::refresh);
    connect(runs, &SessionRuns::allRecorded, this, &MainWindow::onAllRecorded);
    connect(archive, &ArchiveWatch::removed, runs, &SessionRuns::removeDeleted);
}

void MainWindow::connectShutdown()
{
    connect(&m_shutdown, &Shutdown::stopping, this, &MainWindow::onRunsStopping);
    connect(&m_shutdown, &Shutdown::runsEnded, this, &MainWindow::saveSession);
    connect(&m_shutdown, &Shutdown::clearing, this, &MainWindow::onClearing);
    connect(&m_shutdown, &Shutdown::done, this, &MainWindow::onShutdownDone);
}

void MainWindow::openModel(const QString& path, const QString& hint)
{
    const QFileInfo file(path);
    if (!file.isFile() || !file.isReadable()) {
        common_UserQuery(QStringLiteral("Model not opened"), UnreadableModel::text(path, hint),
                         common_UserQuery::Error, this, QString())
            .display();
        return;
    }
    showModel(file.absoluteFilePath());
    m_panel->focusRunButton();
}

void MainWindow::openModels(const QStringList& paths)
{
    if (paths.isEmpty()) {
        return;
    }
    openModel(paths.first());
    if (paths.size() > 1) {
        showOutcome(QStringLiteral("Not opened, as the window takes one model at a time: %1")
                        .arg(namesOf(paths.mid(1))));
    }
}

void MainWindow::showModel(const QString& path)
{
    m_panel->setModel(path);
    m_menu->recentMenu()->addFile(path);
    m_shownModel = path;
    updateTitle();
}

void MainWindow::updateTitle()
{
    const QString tail =
        QStringLiteral(" - %1 - %2").arg(QLatin1String(m_panel->component().name), applicationName);
    setWindowTitle(m_shownModel.isEmpty() ? applicationName : WindowTitle::of(m_shownModel, tail));
}

void MainWindow::setComponent(const Component& component)
{
    m_panel->setComponent(QLatin1String(component.name));
}

void MainWindow::chooseModel()
{
    const QString folder = QFileInfo(m_panel->model()).absolutePath();
    const QString path = OpenDialog::file(this, QStringLiteral("Open a model"), folder,
                                          QStringLiteral("Models (*.nec);;All (*)"));
    if (!path.isEmpty()) {
        openModel(path);
    }
}

void MainWindow::run()
{
    if (m_panel->model().isEmpty()) {
        return;
    }
    const QString model = QFileInfo(m_panel->model()).absoluteFilePath();
    prepareRun();
    if (m_sessionRuns->start(m_panel->component(), model,
                             m_choice->options() & m_panel->component().options,
                             m_session.settings())) {
        showModel(model);
    }
    updateControls();
}

void MainWindow::runAgain(const RunRecord& record, const QString& model)
{
    prepareRun();
    if (m_sessionRuns->startAgain(record, model, m_session.settings())) {
        showOutcome(QStringLiteral("Run %1 is run again").arg(record.number));
    }
    updateControls();
}

// The processes that a component leaves behind, however it ends, must not get lost.
void MainWindow::prepareRun()
{
    showOutcome(QString());
    Descendants::adoptOrphans();
    m_reaper.start();
}

void MainWindow::stopRun()
{
    WindowRun* const run = runToStop();
    if (run != nullptr) {
        RunStops::stop(run->run(), *this);
    }
}

// The selected run, or else the newest one that is going; null when none is.
WindowRun* MainWindow::runToStop() const
{
    WindowRun* const selected = m_list->selectedRun();
    if (selected != nullptr && selected->run().isRunning()) {
        return selected;
    }
    const QVector<WindowRun*> running = m_runs->runningRuns();
    return running.isEmpty() ? nullptr : running.last();
}

// The dialog that the run has in this session, or else what its record says.
void MainWindow::showRun()
{
    WindowRun* const run = m_list->selectedRun();
    if (run != nullptr && run->showDialog()) {
        return;
    }
    const QVector<ListedRun> selected = m_list->selectedRuns();
    if (!selected.isEmpty() && selected.first().number() > 0) {
        showRecord(selected.first().number());
    } else if (run != nullptr) {
        showOutcome(QStringLiteral("The window of this run has been closed."));
    }
}

void MainWindow::showRecord(int /*number*/)
{}

void MainWindow::clearEndedRuns()
{
    m_listPart->clearEnded();
    m_sessionRuns->removeEnded();
}

void MainWindow::editLaunchOptions()
{
    m_choice->editLaunchOptions(this);
}

void MainWindow::editMachinesFile()
{
    MachinesDialog::edit(this);
}

void MainWindow::restoreSession(Start start)
{
    m_session.restore(*this, *m_panel);
    m_choice->restore();
    updateTitle();
    if (start == Start::NoModel) {
        return;
    }
    const WindowSession::Model model = m_session.lastModel();
    showOutcome(model.problem);
    if (!model.path.isEmpty()) {
        showModel(model.path);
    }
}

void MainWindow::saveSession()
{
    m_session.save(*this, *m_panel);
}

void MainWindow::updateControls()
{
    updateTitle();
    const bool isRunning = !m_runs->runningRuns().isEmpty();
    m_panel->setStopEnabled(isRunning);
    m_menu->setStopEnabled(isRunning);
    m_menu->setRunEnabled(!m_panel->model().isEmpty());
    m_applications->setTargets(m_panel->model(), m_list->selectedRun(), m_runs->runs());
    m_menu->setFarmOutEnabled(m_panel->component().options.testFlag(common_RunWrapper::FarmOut));
}

void MainWindow::onChoiceSaved(bool isKept)
{
    showOutcome(isKept ? QString() : QStringLiteral("This choice counts for this session only."));
}

// A run that did not start has been shown already.
void MainWindow::onRunEnded(const WindowRun& run)
{
    if (run.run().state() == Run::State::NotStarted) {
        return;
    }
    const QString text = outcomeText(run);
    showOutcome(text);
    if (QApplication::activeWindow() == nullptr) {
        QApplication::alert(this);
        Notifier::show(QStringLiteral("Run ended"), text);
    }
}

void MainWindow::onRecordFailed(const WindowRun& run)
{
    const bool hasEnded = !run.run().isRunning() && run.run().state() != Run::State::NotStarted;
    showOutcome(hasEnded ? outcomeText(run) : run.recordProblem());
}

void MainWindow::showOutcome(const QString& text)
{
    m_outcome->setText(text);
    m_outcome->setToolTip(text.toHtmlEscaped());
}

void MainWindow::quit()
{
    m_shutdown.request();
}

// The window stays until nothing is left of the runs.
void MainWindow::closeEvent(QCloseEvent* event)
{
    const QVector<WindowRun*> running = m_runs->runningRuns();
    QVector<Run*> runs;
    std::transform(running.begin(), running.end(), std::back_inserter(runs),
                   [](WindowRun* run) { return &run->run(); });
    event->setAccepted(RunStops(m_shutdown, *this).close(runs) && m_isLeaving);
}

void MainWindow::onRunsStopping()
{
    showOutcome(QStringLiteral("Stopping the runs..."));
}

// No run may be started any more.
void MainWindow::onClearing()
{
    showOutcome(QStringLiteral("Ending what the runs have left behind..."));
    centralWidget()->setEnabled(false);
    menuBar()->setEnabled(false);
}

// The records of the runs are still being written.
void MainWindow::onShutdownDone()
{
    m_sessionRuns->finishRecords();
}

void MainWindow::onAllRecorded()
{
    m_isLeaving = true;
    close();
    QCoreApplication::quit();
}
