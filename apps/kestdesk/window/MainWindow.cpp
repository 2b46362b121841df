#include "MainWindow.h"

#include "ApplicationMenu.h"
#include "Component.h"
#include "Descendants.h"
#include "HelpMenu.h"
#include "LaunchOptionsDialog.h"
#include "MachinesDialog.h"
#include "Notifier.h"
#include "OpenDialog.h"
#include "RunChoice.h"
#include "RunPanel.h"
#include "RunTableModel.h"
#include "UnreadableModel.h"
#include "WindowGeometry.h"
#include "WindowRun.h"

#include <FileName.h>
#include <FileProbe.h>
#include <VisibleText.h>

#include <common_HelpClient.h>
#include <common_IApplicationInfo.h>
#include <common_IIconUtility.h>
#include <common_ServiceOf.h>
#include <common_UserQuery.h>
#include <common_geometry_settings.h>
#include <common_recent_file_settings.h>

#include <QApplication>
#include <QCloseEvent>
#include <QDir>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QMenuBar>
#include <QMimeData>
#include <QStatusBar>
#include <QTableView>
#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>

namespace {

const QString applicationName = QStringLiteral("kestdesk");

constexpr int graceTime = 2000; // milliseconds that processes may take to end
constexpr int killTime = 2000;  // milliseconds after which a killed one is given up

QIcon icon(const QString& name)
{
    return GET_SERVICE(common_IIconUtility)->getIcon(name);
}

// The first local file that was dropped; empty when there is none.
QString droppedFile(const QMimeData& data)
{
    const QList<QUrl> urls = data.urls();
    const auto found =
        std::find_if(urls.begin(), urls.end(), [](const QUrl& url) { return url.isLocalFile(); });
    return found == urls.end() ? QString() : suite::FileName::fromUrl(*found);
}

bool isAgreedToStop(const WindowRun& run, QWidget* window)
{
    common_UserQuery query(QStringLiteral("Stop a run"),
                           QStringLiteral("Are you sure you want to stop %1 of %2?")
                               .arg(run.componentName(), suite::visibleFileName(run.model())),
                           common_UserQuery::Warning, window, QString());
    query.addOption(QStringLiteral("Yes"), QMessageBox::YesRole, common_UserQuery::EnterDefault);
    query.addOption(QStringLiteral("No"), QMessageBox::NoRole, common_UserQuery::EscapeDefault);
    return query.display() == QMessageBox::YesRole;
}

} // namespace

MainWindow::MainWindow()
    : m_settings(GET_SERVICE(common_IApplicationInfo)->userSettingsDirectory(), applicationName)
    , m_session(m_settings.getFullFilename())
    , m_runs(new RunTableModel(this))
    , m_applications(new ApplicationMenu(this))
{
    setObjectName(QStringLiteral("kestdeskWindow"));
    setWindowIcon(icon(applicationName));
    setAcceptDrops(true);
    makeContent();
    makeFileMenu();
    makeRunMenu();
    makeOptionsMenu();
    makeApplicationMenu();
    HelpMenu::addTo(*this, QStringLiteral("Runs the suite's solver components on models."));
    connect(&m_ending, &DescendantsEnding::ended, this, &MainWindow::finish);
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
    m_panel = new RunPanel(content);
    layout->addWidget(m_panel);
    layout->addWidget(makeRunListPart(), 1);
    setCentralWidget(content);
    m_outcome = new QLabel(this);
    m_outcome->setObjectName(QStringLiteral("outcomeLabel"));
    m_outcome->setTextFormat(Qt::PlainText); // names of files are in it
    m_outcome->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred); // cut, not widened
    statusBar()->addWidget(m_outcome, 1);
    connect(m_panel, &RunPanel::openRequested, this, &MainWindow::chooseModel);
    connect(m_panel, &RunPanel::runRequested, this, &MainWindow::run);
    connect(m_panel, &RunPanel::stopRequested, this, &MainWindow::stopRun);
    connect(m_panel, &RunPanel::targetChanged, this, &MainWindow::updateControls);
    connect(m_panel, &RunPanel::tickedChanged, this, &MainWindow::saveChoice);
    GET_SERVICE(common_HelpClient)->registerPage(this, applicationName);
}

QWidget* MainWindow::makeRunListPart()
{
    auto* part = new QWidget(this);
    auto* layout = new QVBoxLayout(part);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(makeRunList(), 1);
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

QWidget* MainWindow::makeRunList()
{
    m_list = new QTableView(this);
    m_list->setObjectName(QStringLiteral("runList"));
    m_list->setAccessibleName(QStringLiteral("Runs of this session"));
    m_list->setModel(m_runs);
    m_list->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_list->setSelectionMode(QAbstractItemView::SingleSelection);
    m_list->setTabKeyNavigation(false);
    m_list->setWordWrap(false);
    m_list->verticalHeader()->hide();
    m_list->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    m_list->horizontalHeader()->setSectionResizeMode(RunTableModel::ModelColumn,
                                                     QHeaderView::Stretch);
    m_list->horizontalHeader()->setHighlightSections(false);
    m_list->setContextMenuPolicy(Qt::ActionsContextMenu);
    connect(m_list, &QTableView::activated, this, &MainWindow::showRun);
    connect(m_list->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &MainWindow::updateControls);
    return m_list;
}

void MainWindow::makeFileMenu()
{
    QMenu* menu = menuBar()->addMenu(QStringLiteral("&File"));
    addAction(*menu, QStringLiteral("&Open..."), QStringLiteral("openAction"), QKeySequence::Open,
              &MainWindow::chooseModel)
        ->setIcon(icon(QStringLiteral("open")));
    m_recentMenu = menu->addMenu(icon(QStringLiteral("recent")), QStringLiteral("Open &recent"));
    m_recentMenu->setObjectName(QStringLiteral("recentMenu"));
    connect(m_recentMenu, &QMenu::aboutToShow, this, &MainWindow::listRecentFiles);
    menu->addSeparator();
    QAction* quit = menu->addAction(QStringLiteral("&Quit"), this, &QWidget::close);
    quit->setObjectName(QStringLiteral("quitAction"));
    quit->setShortcut(QKeySequence(QStringLiteral("Ctrl+Q")));
}

void MainWindow::makeRunMenu()
{
    QMenu* menu = menuBar()->addMenu(QStringLiteral("&Run"));
    m_runAction = addAction(*menu, QStringLiteral("&Run"), QStringLiteral("runAction"),
                            QKeySequence(QStringLiteral("F5")), &MainWindow::run);
    m_runAction->setIcon(icon(QStringLiteral("play")));
    m_stopAction = addAction(*menu, QStringLiteral("&Stop..."), QStringLiteral("stopAction"),
                             QKeySequence(QStringLiteral("Shift+F5")), &MainWindow::stopRun);
    m_stopAction->setIcon(icon(QStringLiteral("exclude")));
    menu->addSeparator();
    m_farmOut = menu->addAction(QStringLiteral("&Farm out by OPTKEST"));
    m_farmOut->setObjectName(QStringLiteral("farmOutAction"));
    m_farmOut->setCheckable(true);
    connect(m_farmOut, &QAction::toggled, this, &MainWindow::saveChoice);
    menu->addSeparator();
    m_list->addAction(addAction(*menu, QStringLiteral("Show run's &window"),
                                QStringLiteral("showRunAction"),
                                QKeySequence(QStringLiteral("Ctrl+Return")), &MainWindow::showRun));
    addAction(*menu, QStringLiteral("&Clear ended runs"), QStringLiteral("clearAction"),
              QKeySequence(), &MainWindow::removeEndedRuns);
}

void MainWindow::makeOptionsMenu()
{
    QMenu* menu = menuBar()->addMenu(QStringLiteral("&Options"));
    addAction(*menu, QStringLiteral("Component &launch options..."),
              QStringLiteral("launchOptionsAction"), QKeySequence(QStringLiteral("Ctrl+L")),
              &MainWindow::editLaunchOptions)
        ->setIcon(icon(QStringLiteral("settings")));
    addAction(*menu, QStringLiteral("&Machines file..."), QStringLiteral("machinesFileAction"),
              QKeySequence(), &MainWindow::editMachinesFile)
        ->setIcon(icon(QStringLiteral("machines")));
}

void MainWindow::makeApplicationMenu()
{
    menuBar()->addMenu(m_applications);
    m_list->addAction(m_applications->resultsAction());
    connect(m_applications, &QMenu::aboutToShow, this, &MainWindow::updateControls);
    connect(m_applications, &ApplicationMenu::launched, this, &MainWindow::tellOutcome);
}

QAction* MainWindow::addAction(QMenu& menu, const QString& text, const QString& name,
                               const QKeySequence& shortcut, void (MainWindow::*slot)()) const
{
    QAction* action = menu.addAction(text);
    action->setObjectName(name);
    action->setShortcut(shortcut);
    connect(action, &QAction::triggered, this, slot);
    return action;
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
    m_settings.recentFiles()->addRecentFile(path);
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

void MainWindow::listRecentFiles()
{
    m_recentMenu->clear();
    const QStringList files = m_settings.recentFiles()->recentFiles();
    int number = 0;
    for (const QString& file : files) {
        QString shown = suite::visibleText(file);
        shown.replace(QLatin1Char('&'), QStringLiteral("&&"));
        m_recentMenu->addAction(QStringLiteral("&%1 %2").arg(++number).arg(shown), this,
                                [this, file] { openModel(file); });
    }
    if (files.isEmpty()) {
        m_recentMenu->addAction(QStringLiteral("No recent files"))->setEnabled(false);
    }
}

void MainWindow::run()
{
    if (m_panel->model().isEmpty()) {
        return;
    }
    const QString model = QFileInfo(m_panel->model()).absoluteFilePath();
    auto* run = new WindowRun(m_panel->component(), model, this);
    connect(run, &WindowRun::changed, this, &MainWindow::updateControls);
    connect(run, &WindowRun::ended, this, [this, run] { onRunEnded(*run); });
    m_runs->add(run);
    m_list->selectRow(m_runs->rowCount() - 1);
    tellOutcome(QString());
    // What a component leaves behind, however it ends, must not get lost.
    Descendants::adoptOrphans();
    m_reaper.start();
    if (run->start(choice() & m_panel->component().options, m_settings, this)) {
        showModel(model);
    }
    updateControls();
}

void MainWindow::stopRun()
{
    WindowRun* run = selectedRun();
    if (run == nullptr || !run->isRunning()) {
        const QVector<WindowRun*> going = runningRuns();
        run = going.isEmpty() ? nullptr : going.last();
    }
    if (run != nullptr && isAgreedToStop(*run, this)) {
        stop({run});
    }
}

void MainWindow::stop(const QVector<WindowRun*>& runs)
{
    for (WindowRun* run : runs) {
        run->stop();
    }
}

void MainWindow::showRun()
{
    WindowRun* run = selectedRun();
    if (run != nullptr && !run->showDialog()) {
        tellOutcome(QStringLiteral("The window of this run has been closed."));
    }
}

void MainWindow::removeEndedRuns()
{
    const QVector<WindowRun*> runs = m_runs->runs();
    for (WindowRun* run : runs) {
        if (!run->isRunning()) {
            m_runs->remove(run);
            run->deleteLater();
        }
    }
    updateControls();
}

void MainWindow::editLaunchOptions()
{
    const common_RunWrapper::RunOptions before = RunChoice::load();
    LaunchOptionsDialog::edit(this);
    const common_RunWrapper::RunOptions after = RunChoice::load();
    if (after != before) {
        showChoice(after);
    }
}

void MainWindow::editMachinesFile()
{
    MachinesDialog::edit(this);
}

void MainWindow::restoreSession()
{
    m_settings.readSettings();
    m_session.readSettings();
    WindowGeometry::restore(*this, *m_settings.geometry());
    m_panel->setComponent(m_session.component());
    showChoice(RunChoice::load());
    setWindowTitle(applicationName);
    restoreModel();
}

void MainWindow::restoreModel()
{
    const QString model = m_session.model();
    if (!m_settings.recentFiles()->getRecentSession() || model.isEmpty()) {
        return;
    }
    if (FileProbe().ask(model) == FileProbe::Answer::None) {
        tellOutcome(QStringLiteral("The model of the last session does not answer: %1")
                        .arg(suite::visibleText(model)));
    } else if (QFileInfo(model).isFile()) {
        showModel(QFileInfo(model).absoluteFilePath());
    } else {
        tellOutcome(QStringLiteral("The model of the last session is gone: %1")
                        .arg(suite::visibleText(model)));
    }
}

void MainWindow::saveSession()
{
    WindowGeometry::save(*this, *m_settings.geometry());
    m_settings.recentFiles()->setRecentSession(true);
    m_settings.writeSettings();
    m_session.setModel(m_panel->model());
    m_session.setComponent(QLatin1String(m_panel->component().name));
    m_session.writeSettings();
}

void MainWindow::showChoice(common_RunWrapper::RunOptions options)
{
    m_panel->setTicked(options);
    const QSignalBlocker blocker(m_farmOut);
    m_farmOut->setChecked(options.testFlag(common_RunWrapper::FarmOut));
}

// What cannot be kept counts for this session all the same. The user hears only once that another
// program holds the options.
void MainWindow::saveChoice()
{
    if (m_isToldOfLock && RunChoice::isLocked()) {
        return;
    }
    const bool isKept = RunChoice::save(choice());
    m_isToldOfLock = !isKept;
    tellOutcome(isKept ? QString() : QStringLiteral("This choice counts for this session only."));
}

common_RunWrapper::RunOptions MainWindow::choice() const
{
    common_RunWrapper::RunOptions result = m_panel->ticked();
    result.setFlag(common_RunWrapper::FarmOut, m_farmOut->isChecked());
    return result;
}

WindowRun* MainWindow::selectedRun() const
{
    return m_runs->run(m_list->selectionModel()->currentIndex().row());
}

QVector<WindowRun*> MainWindow::runningRuns() const
{
    QVector<WindowRun*> result;
    for (WindowRun* run : m_runs->runs()) {
        if (run->isRunning()) {
            result.append(run);
        }
    }
    return result;
}

void MainWindow::updateControls()
{
    const bool isGoing = !runningRuns().isEmpty();
    m_panel->setStopEnabled(isGoing);
    m_stopAction->setEnabled(isGoing);
    m_runAction->setEnabled(!m_panel->model().isEmpty());
    m_applications->setTargets(m_panel->model(), selectedRun(), m_runs->runs());
    m_farmOut->setEnabled(m_panel->component().options.testFlag(common_RunWrapper::FarmOut));
}

void MainWindow::onRunEnded(WindowRun& run)
{
    const QString text =
        QStringLiteral("%1 of %2: %3")
            .arg(run.componentName(), suite::visibleFileName(run.model()), run.explanation());
    tellOutcome(text);
    if (QApplication::activeWindow() == nullptr) {
        QApplication::alert(this);
        Notifier::show(QStringLiteral("Run ended"), text);
    }
    if (m_closing && runningRuns().isEmpty()) {
        QMetaObject::invokeMethod(this, &QWidget::close, Qt::QueuedConnection);
    }
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    const bool isReady = m_isDone || (mayClose() && leave());
    event->setAccepted(isReady);
    if (isReady) {
        QCoreApplication::quit();
    }
}

// When no run is going on. True when nothing is left of the runs; else that is ended first, while
// the window stays, and a second wish to close does not wait for it.
bool MainWindow::leave()
{
    if (m_ending.isActive()) {
        m_ending.hurry();
        return false;
    }
    saveSession();
    if (!Descendants::areAlive()) {
        return true;
    }
    tellOutcome(QStringLiteral("Ending what the runs have left behind..."));
    centralWidget()->setEnabled(false); // no new run
    menuBar()->setEnabled(false);
    m_ending.start(graceTime);
    return false;
}

void MainWindow::finish()
{
    m_isDone = true;
    close();
}

// With runs going the user decides; a second wish to close while they are being stopped ends them
// by force.
bool MainWindow::mayClose()
{
    const QVector<WindowRun*> going = runningRuns();
    if (going.isEmpty()) {
        return true;
    }
    if (!isAgreedToClose(going)) {
        m_closing = false;
        return false;
    }
    if (m_closing) {
        endByForce();
    } else {
        stopForClose(going);
    }
    return runningRuns().isEmpty();
}

bool MainWindow::isAgreedToClose(const QVector<WindowRun*>& going)
{
    const QString question =
        m_closing ? QStringLiteral("Runs that did not stop yet: %1. End them by force and quit?")
                  : QStringLiteral("Runs that are still going: %1. Stop them and quit?");
    common_UserQuery query(QStringLiteral("Runs are still going"), question.arg(going.size()),
                           common_UserQuery::Warning, this, QString());
    query.addOption(QStringLiteral("Yes"), QMessageBox::YesRole, common_UserQuery::EnterDefault);
    query.addOption(QStringLiteral("No"), QMessageBox::NoRole, common_UserQuery::EscapeDefault);
    return query.display() == QMessageBox::YesRole;
}

// The window closes when the last of them has ended.
void MainWindow::stopForClose(const QVector<WindowRun*>& going)
{
    m_closing = true;
    tellOutcome(QStringLiteral("Stopping the runs..."));
    stop(going);
}

// Ended runs tidy up after themselves, for which they must hear of it.
void MainWindow::endByForce() const
{
    Descendants::killAll();
    QTimer::singleShot(killTime, this, &MainWindow::giveUp);
}

// A process that waits for a device does not end.
void MainWindow::giveUp() const
{
    const QVector<WindowRun*> going = runningRuns();
    for (WindowRun* run : going) {
        run->giveUp();
    }
}

void MainWindow::tellOutcome(const QString& text)
{
    m_outcome->setText(text);
    m_outcome->setToolTip(text.toHtmlEscaped());
}

void MainWindow::quit()
{
    const QVector<WindowRun*> going = runningRuns();
    if (going.isEmpty()) {
        if (leave()) {
            finish();
        }
    } else if (m_closing) {
        endByForce();
    } else {
        stopForClose(going);
    }
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
