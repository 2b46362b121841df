#pragma once

#include "DescendantsEnding.h"
#include "OrphanReaper.h"
#include "SessionSettings.h"

#include <common_CommonSettingsSet.h>
#include <common_RunWrapper.h>

#include <QMainWindow>

class ApplicationMenu;
class QAction;
class QLabel;
class QMenu;
class QTableView;
class RunPanel;
class RunTableModel;
class WindowRun;
struct Component;

/// kestdesk's window: a model, how to run it, and the runs of this session.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    /// As it was at the end of the last session.
    MainWindow();
    ~MainWindow() override;

    /// Opens a model: it becomes the one to run, and the newest of the recent files. Tells the user
    /// when there is no such file.
    void openModel(const QString& path);

    void setComponent(const Component& component);

    /// Stops the runs and closes the window without asking; asked once more, ends them by force.
    void quit();

protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void makeContent();
    QWidget* makeRunList();
    void makeFileMenu();
    void makeRunMenu();
    void makeOptionsMenu();
    void makeApplicationMenu();
    QAction* addAction(QMenu& menu, const QString& text, const QString& name,
                       const QKeySequence& shortcut, void (MainWindow::*slot)()) const;
    QWidget* makeRunListPart();
    QWidget* makeRunListHead();

    void chooseModel();
    void listRecentFiles();
    void run();
    void stopRun();
    void stop(const QVector<WindowRun*>& runs);
    void showRun();
    void removeEndedRuns();
    void editLaunchOptions();
    void editMachinesFile();

    void restoreSession();
    void restoreModel();
    void saveSession();
    bool leave();
    void finish();
    void showModel(const QString& path);
    void showChoice(common_RunWrapper::RunOptions options);
    void saveChoice();
    [[nodiscard]] common_RunWrapper::RunOptions choice() const;
    [[nodiscard]] WindowRun* selectedRun() const;
    [[nodiscard]] QVector<WindowRun*> runningRuns() const;
    void updateControls();
    void onRunEnded(WindowRun& run);
    bool mayClose();
    bool isAgreedToClose(const QVector<WindowRun*>& going);
    void stopForClose(const QVector<WindowRun*>& going);
    void endByForce() const;
    void giveUp() const;
    void tellOutcome(const QString& text);

    common_CommonSettingsSet m_settings;
    SessionSettings m_session;
    RunPanel* m_panel = nullptr;
    QTableView* m_list = nullptr;
    QLabel* m_outcome = nullptr;
    RunTableModel* m_runs;
    QMenu* m_recentMenu = nullptr;
    QAction* m_runAction = nullptr;
    QAction* m_stopAction = nullptr;
    QAction* m_farmOut = nullptr;
    ApplicationMenu* m_applications;
    bool m_isToldOfLock = false;
    DescendantsEnding m_ending;
    OrphanReaper m_reaper;
    bool m_closing = false;
    bool m_isDone = false; ///< nothing is left that would have to be ended
};
