#include "MainWindow.h"

#include "ApplicationMenu.h"
#include "Component.h"
#include "Descendants.h"
#include "HelpMenu.h"
#include "LaunchChoice.h"
#include "MachinesDialog.h"
#include "MainMenu.h"
#include "Notifier.h"
#include "OpenDialog.h"
#include "RecentMenu.h"
#include "RunListView.h"
#include "RunPanel.h"
#include "RunTableModel.h"
#include "StopQuestion.h"
#include "UnreadableModel.h"
#include "WindowRun.h"

#include <FileName.h>
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
#include <QMimeData>
#include <QStatusBar>
#include <QVBoxLayout>

#include <algorithm>

namespace {

const QString applicationName = QStringLiteral("kestdesk");

// The first local file that was dropped; empty when there is none.
QString droppedFile(const QMimeData& data)
{
    const QList<QUrl> urls = data.urls();
    const auto found =
        std::find_if(urls.begin(), urls.end(), [](const QUrl& url) { return url.isLocalFile(); });
    return found == urls.end() ? QString() : suite::FileName::fromUrl(*found);
}

} // namespace

MainWindow::MainWindow()
    : m_runs(new RunTableModel(this)), m_applications(new ApplicationMenu(this))
{
    setObjectName(QStringLiteral("kestdeskWindow"));
    setWindowIcon(GET_SERVICE(common_IIconUtility)->getIcon(applicationName));
    setAcceptDrops(true);
    makeContent();
    makeMenus();
    makeChoice();
    connectShutdown();
    restoreSession();
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
    connect(m_menu->recentMenu(), &RecentMenu::fileChosen, this, &MainWindow::openModel);
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

void MainWindow::openModel(const QString& path)
{
    const QFileInfo file(path);
    if (!file.isFile() || !file.isReadable()) {
        common_UserQuery(QStringLiteral("Model not opened"), UnreadableModel::text(path),
                         common_UserQuery::Error, this, QString())
            .display();
        return;
    }
    showModel(file.absoluteFilePath());
    m_panel->focusRunButton();
}

void MainWindow::showModel(const QString& path)
{
    m_panel->setModel(path);
    m_menu->recentMenu()->addFile(path);
    setWindowTitle(suite::visibleFileName(path) + QStringLiteral(" - ") + applicationName);
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
    connect(run, &WindowRun::changed, this, &MainWindow::updateControls);
    connect(run, &WindowRun::ended, this, [this, run] { onRunEnded(*run); });
    m_shutdown.add(run->run());
    m_runs->add(run);
    m_list->selectNewestRun();
    return run;
}

void MainWindow::stopRun()
{
    WindowRun* run = m_list->selectedRun();
    if (run == nullptr || !run->run().isRunning()) {
        const QVector<WindowRun*> running = m_runs->runningRuns();
        run = running.isEmpty() ? nullptr : running.last();
    }
    if (run != nullptr && StopQuestion::agreesToStop(run->run(), this)) {
        run->run().stop();
    }
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

void MainWindow::restoreSession()
{
    m_session.restore(*this, *m_panel);
    m_choice->restore();
    setWindowTitle(applicationName);
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

// With runs going the user decides. The window stays until nothing is left of the runs.
void MainWindow::closeEvent(QCloseEvent* event)
{
    if (agreesToClose()) {
        m_shutdown.request();
    } else {
        m_shutdown.cancel();
    }
    event->setAccepted(m_shutdown.isDone());
}

bool MainWindow::agreesToClose()
{
    const int running = m_runs->runningRuns().size();
    if (running == 0) {
        return true;
    }
    return m_shutdown.phase() == Shutdown::Phase::None ? StopQuestion::agreesToQuit(running, this)
                                                       : StopQuestion::agreesToForce(running, this);
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

void MainWindow::dragEnterEvent(QDragEnterEvent* event)
{
    if (!droppedFile(*event->mimeData()).isEmpty()) {
        event->acceptProposedAction();
    }
}

void MainWindow::dropEvent(QDropEvent* event)
{
    openModel(droppedFile(*event->mimeData()));
    event->acceptProposedAction();
}
