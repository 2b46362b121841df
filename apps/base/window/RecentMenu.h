#pragma once

#include <FileProbe.h>

#include <QHash>
#include <QMenu>
#include <QThreadPool>

class common_recent_file_settings;

/// Lists the recent files, the newest first, so that the user can open one of them again. Those
/// that cannot be read are grey, as soon as that is known: nothing waits for a network that is
/// gone.
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
    using Answers = QHash<QString, FileProbe::Answer>; ///< by path

    void list();
    void check(const QStringList& files);
    void showAnswers(const Answers& answers);
    void updateEntry(QAction& entry) const;

    common_recent_file_settings* m_settings;
    Answers m_answers; ///< the last ones
    bool m_isChecking = false;
    QThreadPool m_thread; ///< its end is waited for, which is not long
};
