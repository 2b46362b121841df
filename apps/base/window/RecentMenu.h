#pragma once

#include <QMenu>

class common_recent_file_settings;

/// Lists the recent files, the newest first, so that the user can open one of them again.
class RecentMenu : public QMenu
{
    Q_OBJECT

public:
    /// The settings are not owned; they must be there for as long as the menu is used.
    RecentMenu(QWidget* parent, common_recent_file_settings* settings);

    /// Makes the file the newest of them.
    void addFile(const QString& path);

Q_SIGNALS:
    void fileChosen(const QString& path);

private:
    void list();

    common_recent_file_settings* m_settings;
};
