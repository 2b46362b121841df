#pragma once

#include "OrphanReaper.h"
#include "Shutdown.h"
#include "WindowSession.h"

#include <QMainWindow>

#include <memory>

class ApplicationMenu;
class LaunchChoice;
class MainMenu;
class ModelOpener;
class QLabel;
class RunDesk;
class RunListView;
class RunPanel;
class RunTableModel;
class WindowQueue;
class WindowRun;
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

    /// Opens the first of the models. Where there are several, all of them wait in the queue, held.
    /// Those that cannot be opened are shown, with the hint, and left out.
    void openModels(const QStringList& paths, const QString& hint = QString());

    void setComponent(const Component& component);

    /// Stops the runs and closes the window without asking; asked once more, ends them by force.
    void quit();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void makeContent();
    void makePanel(QWidget* content);
    void makeOutcomeLabel();
    void connectRuns();
    void makeMenus();
    void addApplicationMenu();
    void makeChoice();
    void connectQueue();
    void connectShutdown();

    void run();
    void prepareRun();
    void stopRun();
    WindowRun* runToStop() const;
    void editLaunchOptions();
    void editPreferences();

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
    Shutdown m_shutdown;
    std::unique_ptr<RunDesk> m_runDesk;
    RunTableModel* m_runs;
    RunListView* m_list;
    RunPanel* m_panel = nullptr;
    QLabel* m_outcome = nullptr;
    MainMenu* m_menu = nullptr;
    LaunchChoice* m_choice = nullptr;
    ApplicationMenu* m_applications;
    QString m_shownModel; ///< of the title
    OrphanReaper m_reaper;
    bool m_isLeaving = false; ///< nothing is left to wait for
    WindowQueue* m_queue;
    std::unique_ptr<ModelOpener> m_opener;
};
