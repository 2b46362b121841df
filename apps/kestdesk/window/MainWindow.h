#pragma once

#include "OrphanReaper.h"
#include "RunTitles.h"
#include "Shutdown.h"
#include "WindowSession.h"

#include <QMainWindow>

class ApplicationMenu;
class LaunchChoice;
class MainMenu;
class QLabel;
class RunListView;
class RunPanel;
class RunTableModel;
class WindowRun;
struct Component;

/// kestdesk's window: a model, how to run it, and the runs of this session.
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
    QWidget* makeRunListPart();
    QWidget* makeRunListHead();
    void makeOutcomeLabel();
    void makeMenus();
    void addApplicationMenu();
    void makeChoice();
    void connectShutdown();

    void chooseModel();
    void run();
    WindowRun* addRun(const QString& model);
    void stopRun();
    WindowRun* runToStop() const;
    void showRun();
    void removeEndedRuns();
    void editLaunchOptions();
    void editMachinesFile();

    void restoreSession(Start start);
    void saveSession();
    void showModel(const QString& path);
    void updateTitle();
    void updateControls();
    void onChoiceSaved(bool isKept);
    void onRunEnded(const WindowRun& run);
    void showOutcome(const QString& text);

    void onRunsStopping();
    void onClearing();
    void onShutdownDone();

    WindowSession m_session;
    RunPanel* m_panel = nullptr;
    RunListView* m_list = nullptr;
    QLabel* m_outcome = nullptr;
    RunTableModel* m_runs;
    MainMenu* m_menu = nullptr;
    LaunchChoice* m_choice = nullptr;
    ApplicationMenu* m_applications;
    QString m_shownModel; ///< of the title
    RunTitles m_titles;
    Shutdown m_shutdown;
    OrphanReaper m_reaper;
};
