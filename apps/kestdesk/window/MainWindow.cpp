#include "MainWindow.h"

#include "ApplicationMenu.h"
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
#include "RunListView.h"
#include "RunPanel.h"
#include "RunStops.h"
#include "RunTableModel.h"
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
#include <QHBoxLayout>
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

} // namespace

MainWindow::MainWindow(Start start)
    : m_runs(new RunTableModel(this)), m_applications(new ApplicationMenu(this))
{
    setObjectName(QStringLiteral("kestdeskWindow"));
    setWindowIcon(GET_SERVICE(common_IIconUtility)->getIcon(applicationName));
    connect(new FileDrop(this), &FileDrop::dropped, this, &MainWindow::openModels);
    makeContent();
    makeMenus();
    makeChoice();
    connectShutdown();
    restoreSession(start);
    updateControls();
}

// While the window is whole: the runs tell it of their changes.
MainWindow::~MainWindow()
{
    const QVector<WindowRun*> runs = m_runs->runs();
    for (WindowRun* run : runs) {
        m_runs->remove(run);
        delete run;
    }
}

void MainWindow::makeContent()
{
    auto* content = new QWidget(this);
    auto* layout = new QVBoxLayout(content);
    makePanel(content);
    layout->addWidget(m_panel);
    layout->addWidget(makeRunListPart(), 1);
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

QWidget* MainWindow::makeRunListPart()
{
    m_list = new RunListView(m_runs, this);
    connect(m_list, &QTableView::activated, this, &MainWindow::showRun);
    connect(m_list, &RunListView::selectedRunChanged, this, &MainWindow::updateControls);
    auto* part = new QWidget(this);
    auto* layout = new QVBoxLayout(part);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_list, 1);
    layout->insertWidget(0, makeRunListHead());
    return part;
}

QWidget* MainWindow::makeRunListHead()
{
    auto* head = new QWidget(this);
    auto* layout = new QHBoxLayout(head);
    layout->setContentsMargins(0, 0, 0, 0);
    auto* label = new QLabel(QStringLiteral("Runs of &this session:"), head);
    label->setBuddy(m_list);
    layout->addWidget(label, 1);
    layout->addWidget(m_applications->makeResultsButton(head));
    return head;
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
    connect(m_menu, &MainMenu::clearRequested, this, &MainWindow::removeEndedRuns);
    connect(m_menu, &MainMenu::launchOptionsRequested, this, &MainWindow::editLaunchOptions);
    connect(m_menu, &MainMenu::machinesFileRequested, this, &MainWindow::editMachinesFile);
    m_list->addAction(m_menu->showRunAction());
    addApplicationMenu();
    HelpMenu::addTo(*this, QStringLiteral("Runs the suite's solver components on models."));
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
    WindowRun* run = addRun(model);
    showOutcome(QString());
    // The processes that a component leaves behind, however it ends, must not get lost.
    Descendants::adoptOrphans();
    m_reaper.start();
    if (run->start(m_choice->options() & m_panel->component().options, m_session.settings(),
                   this)) {
        showModel(model);
    }
    updateControls();
}

WindowRun* MainWindow::addRun(const QString& model)
{
    auto* run = new WindowRun(m_panel->component(), model, this);
    run->setTitle(m_titles.next(run->run()));
    connect(run, &WindowRun::changed, this, &MainWindow::updateControls);
    connect(run, &WindowRun::ended, this, [this, run] { onRunEnded(*run); });
    m_shutdown.add(run->run());
    m_runs->add(run);
    m_list->selectNewestRun();
    return run;
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

void MainWindow::showRun()
{
    WindowRun* run = m_list->selectedRun();
    if (run != nullptr && !run->showDialog()) {
        showOutcome(QStringLiteral("The window of this run has been closed."));
    }
}

void MainWindow::removeEndedRuns()
{
    const QVector<WindowRun*> runs = m_runs->runs();
    for (WindowRun* run : runs) {
        if (!run->run().isRunning()) {
            m_runs->remove(run);
            run->deleteLater();
        }
    }
    updateControls();
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
    const QString text = QStringLiteral("%1 of %2: %3")
                             .arg(run.run().componentName(),
                                  suite::visibleFileName(run.run().model()), run.explanation());
    showOutcome(text);
    if (QApplication::activeWindow() == nullptr) {
        QApplication::alert(this);
        Notifier::show(QStringLiteral("Run ended"), text);
    }
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
    event->setAccepted(RunStops(m_shutdown, *this).close(runs));
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

void MainWindow::onShutdownDone()
{
    close();
    QCoreApplication::quit();
}
