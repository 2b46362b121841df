// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

class QAction;
class QMainWindow;
class QMenu;
class RecentMenu;
class common_recent_file_settings;

/// The menus File, Run and Options of the window's menu bar.
class MainMenu : public QObject
{
    Q_OBJECT

public:
    /// Adds the menus to the window. The window owns this object.
    MainMenu(QMainWindow* window, common_recent_file_settings* recentFiles);

    RecentMenu* recentMenu() const { return m_recentMenu; }
    QMenu* runMenu();
    QAction* showRunAction() const { return action("showRunAction"); }

    bool isFarmOutTicked() const;

    /// Emits no signal.
    void setFarmOutTicked(bool ticked);

    void setFarmOutEnabled(bool enabled);
    void setRunEnabled(bool enabled);
    void setStopEnabled(bool enabled);

Q_SIGNALS:
    void openRequested();
    void quitRequested();
    void runRequested();
    void stopRequested();
    void farmOutTicked();
    void showRunRequested();
    void clearRequested();
    void launchOptionsRequested();
    void machinesFileRequested();
    void preferencesRequested();

private:
    struct ActionRow;
    static const ActionRow actionRows[];

    QMenu* menu(const char* untranslated);
    void addAction(const ActionRow& row);
    void addRecentMenu();
    QAction* action(const char* name) const;

    QMainWindow* m_window;
    RecentMenu* m_recentMenu;
};
