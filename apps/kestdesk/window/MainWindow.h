#pragma once

#include "OrphanReaper.h"
#include "Shutdown.h"
#include "WindowSession.h"

#include <QMainWindow>

#include <memory>

class ApplicationMenu;
class LaunchChoice;
class MainMenu;
class QLabel;
class RunAgain;
class RunListPart;
class RunListView;
class RunPanel;
class RunTableModel;
class SessionRuns;
class WindowRun;
struct RunRecord;
struct Component;

/// kestdesk's window: a model, how to run it, and the runs, of this session and before.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    enum class Start {
        LastModel, ///< with the model of the last session
        NoModel,   ///< without one
    };

    /// As it was at the end of the last session.
    explicit MainWindow(Start start = Start::LastModel);
    ~MainWindow() override;

    /// Opens a model: it becomes the one to run, and the newest of the recent files. Shows an error
    /// when there is no such file, with the hint, which may be empty.
    void openModel(const QString& path, const QString& hint = QString());

    /// Opens the first of the models, and says which ones are left.
    void openModels(const QStringList& paths);

    void setComponent(const Component& component);

    /// Stops the runs and closes the window without asking; asked once more, ends them by force.
    void quit();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void makeContent();
    void makePanel(QWidget* content);
    void makeRunListPart(QWidget* content);
    void makeOutcomeLabel();
    void connectRuns();
    void makeRunActions();
    void makeMenus();
    void addApplicationMenu();
    void makeChoice();
    void connectShutdown();

    void chooseModel();
    void run();
    void prepareRun();
    void runAgain(const RunRecord& record, const QString& model);
    void stopRun();
    WindowRun* runToStop() const;
    void showRun();
    void showRecord(int number);
    void clearEndedRuns();
    void editLaunchOptions();
    void editMachinesFile();

    void restoreSession(Start start);
    void saveSession();
    void showModel(const QString& path);
    void updateTitle();
    void updateControls();
    void onChoiceSaved(bool isKept);
    void onRunEnded(const WindowRun& run);
    void onRecordFailed(const WindowRun& run);
    void showOutcome(const QString& text);

    void onRunsStopping();
    void onClearing();
    void onShutdownDone();
    void onAllRecorded();

    WindowSession m_session;
    RunPanel* m_panel = nullptr;
    RunListPart* m_listPart = nullptr;
    RunListView* m_list = nullptr;
    QLabel* m_outcome = nullptr;
    RunTableModel* m_runs;
    MainMenu* m_menu = nullptr;
    LaunchChoice* m_choice = nullptr;
    ApplicationMenu* m_applications;
    QString m_shownModel; ///< of the title
    RunAgain* m_again;
    Shutdown m_shutdown;
    OrphanReaper m_reaper;
    bool m_isLeaving = false;                   ///< nothing is left to wait for
    std::unique_ptr<SessionRuns> m_sessionRuns; ///< the first to go, while the window is whole
};
