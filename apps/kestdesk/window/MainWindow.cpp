// SPDX-License-Identifier: MIT
#include "MainWindow.h"

#include "ApplicationMenu.h"
#include "Component.h"
#include "Descendants.h"
#include "FileDrop.h"
#include "HelpMenu.h"
#include "KestdeskSettings.h"
#include "LaunchChoice.h"
#include "MachinesDialog.h"
#include "MainMenu.h"
#include "ModelOpener.h"
#include "Notifier.h"
#include "PreferencesDialog.h"
#include "QueuePanel.h"
#include "RecentMenu.h"
#include "RunDesk.h"
#include "RunListPart.h"
#include "RunListView.h"
#include "RunPanel.h"
#include "RunStops.h"
#include "RunTableModel.h"
#include "WelcomePanel.h"
#include "WindowQueue.h"
#include "WindowRun.h"
#include "WindowTitle.h"

#include <VisibleText.h>

#include <common_HelpClient.h>
#include <common_IIconUtility.h>
#include <common_ServiceOf.h>

#include <QApplication>
#include <QCloseEvent>
#include <QFileInfo>
#include <QLabel>
#include <QMenuBar>
#include <QStatusBar>
#include <QVBoxLayout>

namespace {

const QString applicationName = QStringLiteral("kestdesk");

QString outcomeText(const WindowRun& run)
{
    QString text = MainWindow::tr("%1 of %2: %3")
                       .arg(run.run().componentName(), suite::visibleFileName(run.run().model()),
                            run.explanation());
    if (!run.recordProblem().isEmpty()) {
        text += QLatin1Char(text.endsWith(QLatin1Char('.')) ? ' ' : '.') + run.recordProblem();
    }
    return text;
}

} // namespace

MainWindow::MainWindow(Start start)
    : m_runDesk(std::make_unique<RunDesk>(m_shutdown, m_session.settings(), this))
    , m_runs(m_runDesk->runs())
    , m_list(m_runDesk->list())
    , m_applications(new ApplicationMenu(this))
    , m_queue(new WindowQueue(m_runDesk->session(), m_session.settings(), m_shutdown, this))
{
    setObjectName(QStringLiteral("kestdeskWindow"));
    setWindowIcon(GET_SERVICE(common_IIconUtility)->getIcon(applicationName));
    connect(new FileDrop(this), &FileDrop::dropped, this,
            [this](const QStringList& files) { openModels(files); });
    makeContent();
    makeMenus();
    makeChoice();
    connectRuns();
    connectQueue();
    connectShutdown();
    restoreSession(start);
    m_queue->restore();
    m_runDesk->start();
    updateControls();
}

MainWindow::~MainWindow()
{
    m_runDesk.reset(); // before the other members: the runs report their changes to the window
}

void MainWindow::makeContent()
{
    auto* content = new QWidget(this);
    auto* layout = new QVBoxLayout(content);
    makePanel(content);
    layout->addWidget(m_panel);
    layout->addWidget(makeWelcome(content));
    layout->addWidget(new QueuePanel(m_queue->queue(), content));
    m_runDesk->listPart()->addButton(m_applications->makeResultsButton(content));
    layout->addWidget(m_runDesk->listPart(), 1);
    setCentralWidget(content);
    m_runDesk->listPart()->orderTabs();
    makeOutcomeLabel();
    GET_SERVICE(common_HelpClient)->registerPage(this, applicationName);
}

QWidget* MainWindow::makeWelcome(QWidget* content)
{
    m_welcome = new WelcomePanel(content);
    connect(m_welcome, &WelcomePanel::openRequested, this, [this] { m_opener->choose(); });
    connect(m_welcome, &WelcomePanel::sampleOpened, this,
            [this](const QString& path) { openModel(path); });
    connect(m_welcome, &WelcomePanel::reported, this, &MainWindow::showOutcome);
    return m_welcome;
}

void MainWindow::makePanel(QWidget* content)
{
    m_panel = new RunPanel(content);
    connect(m_panel, &RunPanel::openRequested, this, [this] { m_opener->choose(); });
    connect(m_panel, &RunPanel::runRequested, this, &MainWindow::run);
    connect(m_panel, &RunPanel::stopRequested, this, &MainWindow::stopRun);
    connect(m_panel, &RunPanel::targetChanged, this, &MainWindow::updateControls);
}

void MainWindow::makeOutcomeLabel()
{
    m_outcome = new QLabel(this);
    m_outcome->setObjectName(QStringLiteral("outcomeLabel"));
    m_outcome->setTextFormat(Qt::PlainText); // contains names of files
    m_outcome->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred); // cut, not widened
    statusBar()->addWidget(m_outcome, 1);
}

void MainWindow::makeMenus()
{
    m_menu = new MainMenu(this, m_session.recentFiles());
    connect(m_menu, &MainMenu::openRequested, this, [this] { m_opener->choose(); });
    connect(m_menu->recentMenu(), &RecentMenu::fileChosen, this,
            [this](const QString& path) { openModel(path); });
    connect(m_menu, &MainMenu::quitRequested, this, &QWidget::close);
    connect(m_menu, &MainMenu::runRequested, this, &MainWindow::run);
    connect(m_menu, &MainMenu::stopRequested, this, &MainWindow::stopRun);
    connect(m_menu, &MainMenu::showRunRequested, m_runDesk.get(), &RunDesk::showRun);
    connect(m_menu, &MainMenu::clearRequested, m_runDesk.get(), &RunDesk::clearEnded);
    connect(m_menu, &MainMenu::launchOptionsRequested, this, &MainWindow::editLaunchOptions);
    connect(m_menu, &MainMenu::machinesFileRequested, this, [this] { MachinesDialog::edit(this); });
    connect(m_menu, &MainMenu::preferencesRequested, this, &MainWindow::editPreferences);
    m_runDesk->addActions(m_menu);
    addApplicationMenu();
    HelpMenu::addTo(*this, tr("Runs the suite's solver components on models."));
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
    m_opener = std::make_unique<ModelOpener>(m_panel, m_choice, m_queue->queue());
    connect(m_opener.get(), &ModelOpener::opened, this, [this](const QString& path) {
        showModel(path);
        m_panel->focusRunButton();
    });
    connect(m_opener.get(), &ModelOpener::reported, this, &MainWindow::showOutcome);
}

void MainWindow::connectRuns()
{
    RunDesk* const desk = m_runDesk.get();
    connect(desk, &RunDesk::changed, this, &MainWindow::updateControls);
    connect(desk, &RunDesk::aboutToRun, this, &MainWindow::prepareRun);
    connect(desk, &RunDesk::reported, this, &MainWindow::showOutcome);
    connect(&desk->session(), &SessionRuns::ended, this, &MainWindow::onRunEnded);
    connect(&desk->session(), &SessionRuns::recordFailed, this, &MainWindow::onRecordFailed);
    connect(&desk->session(), &SessionRuns::allRecorded, this, &MainWindow::onAllRecorded);
}

void MainWindow::connectQueue()
{
    connect(m_queue, &WindowQueue::starting, this, &MainWindow::prepareRun);
    connect(m_queue, &WindowQueue::started, this, [this](const QString& model) {
        if (QFileInfo(m_panel->model()).absoluteFilePath() == model) {
            showModel(model);
        } else {
            m_menu->recentMenu()->addFile(model);
        }
        updateControls();
    });
    connect(m_queue, &WindowQueue::reported, this, &MainWindow::showOutcome);
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
    m_opener->open(path, hint);
}

void MainWindow::openModels(const QStringList& paths, const QString& hint)
{
    m_opener->open(paths, hint);
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

void MainWindow::run()
{
    if (m_panel->model().isEmpty()) {
        return;
    }
    m_opener->queue(m_panel->model(), false);
    m_queue->queue().startNext();
}

// Processes that a component leaves behind become children of this program, which can end them.
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
        RunStops::stop(*run, *this);
    }
}

// The selected run, or else the newest running one; null if none runs.
WindowRun* MainWindow::runToStop() const
{
    WindowRun* const selected = m_list->selectedRun();
    if (selected != nullptr && selected->run().isRunning()) {
        return selected;
    }
    const QVector<WindowRun*> running = m_runs->runningRuns();
    return running.isEmpty() ? nullptr : running.last();
}

void MainWindow::editLaunchOptions()
{
    m_choice->editLaunchOptions(this);
}

void MainWindow::editPreferences()
{
    PreferencesDialog::edit(this);
    m_queue->readSettings();
}

void MainWindow::restoreSession(Start start)
{
    m_session.restore(*this, *m_panel);
    m_choice->restore();
    updateTitle();
    if (start == Start::NoModel || !KestdeskSettings::read().opensLastModel()) {
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
    m_welcome->setVisible(m_panel->model().isEmpty() && m_runs->runs().isEmpty());
    const bool isRunning = !m_runs->runningRuns().isEmpty();
    m_panel->setStopEnabled(isRunning);
    m_menu->setStopEnabled(isRunning);
    m_menu->setRunEnabled(!m_panel->model().isEmpty());
    m_applications->setTargets(m_panel->model(), m_list->selectedRun(), m_runs->runs());
    m_menu->setFarmOutEnabled(m_panel->component().options.testFlag(common_RunWrapper::FarmOut));
}

void MainWindow::onChoiceSaved(bool isKept)
{
    showOutcome(isKept ? QString() : tr("This choice counts for this session only."));
}

// The user has already seen why a run did not start.
void MainWindow::onRunEnded(const WindowRun& run)
{
    if (run.run().state() == Run::State::NotStarted) {
        return;
    }
    const QString text = outcomeText(run);
    showOutcome(text);
    if (QApplication::activeWindow() == nullptr) {
        QApplication::alert(this);
        if (KestdeskSettings::read().notifies()) {
            Notifier::show(tr("Run ended"), text);
        }
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

// The window stays until all runs and their processes have ended.
void MainWindow::closeEvent(QCloseEvent* event)
{
    const bool mayClose = RunStops(m_shutdown, *this).close(m_runs->runningRuns());
    event->setAccepted(mayClose && m_isLeaving);
}

void MainWindow::onRunsStopping()
{
    showOutcome(tr("Stopping the runs..."));
}

// From here on no run is started.
void MainWindow::onClearing()
{
    showOutcome(tr("Ending what the runs have left behind..."));
    centralWidget()->setEnabled(false);
    menuBar()->setEnabled(false);
}

// The records of the runs are still being written.
void MainWindow::onShutdownDone()
{
    m_runDesk->session().finishRecords();
}

void MainWindow::onAllRecorded()
{
    m_isLeaving = true;
    close();
    QCoreApplication::quit();
}
