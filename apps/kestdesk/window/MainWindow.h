// SPDX-License-Identifier: MIT
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
class WelcomePanel;
class WindowRun;
struct Component;

/// kestdesk's main window: the model, the run options, and the list of runs.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    enum class Start {
        LastModel, ///< with the model of the last session
        NoModel,   ///< without one
    };

    /// Restores the state of the last session.
    explicit MainWindow(Start start = Start::LastModel);
    ~MainWindow() override;

    /// Makes this the model to run, and the newest of the recent files. If the file cannot be
    /// opened, shows an error with the hint, which may be empty.
    void openModel(const QString& path, const QString& hint = QString());

    /// Opens the first of the models. If there are several, adds all of them to the queue, held.
    /// Skips the models that cannot be opened and shows an error with the hint, which may be empty.
    void openModels(const QStringList& paths, const QString& hint = QString());

    void setComponent(const Component& component);

    /// Stops the runs and closes the window without a question. A second call kills the runs.
    void quit();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void makeContent();
    QWidget* makeWelcome(QWidget* content);
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
    WelcomePanel* m_welcome = nullptr;
    RunTableModel* m_runs;
    RunListView* m_list;
    RunPanel* m_panel = nullptr;
    QLabel* m_outcome = nullptr;
    MainMenu* m_menu = nullptr;
    LaunchChoice* m_choice = nullptr;
    ApplicationMenu* m_applications;
    QString m_shownModel; ///< in the window title
    OrphanReaper m_reaper;
    bool m_isLeaving = false; ///< the window closes without further questions
    WindowQueue* m_queue;
    std::unique_ptr<ModelOpener> m_opener;
};
