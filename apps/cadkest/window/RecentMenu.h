#pragma once

#include <QMenu>

class common_recent_file_settings;

class MainWindow;

/// Opens the models of before again. What is opened becomes the newest of them.
class RecentMenu : public QMenu
{
    Q_OBJECT

public:
    /// The window's; the settings are not the menu's and must live longer.
    RecentMenu(MainWindow* window, common_recent_file_settings* settings);

private:
    void list();

    MainWindow* m_window;
    common_recent_file_settings* m_settings;
};
