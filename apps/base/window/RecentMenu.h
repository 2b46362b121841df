// SPDX-License-Identifier: MIT
#pragma once

#include <FileProbe.h>

#include <QHash>
#include <QMenu>
#include <QThreadPool>

class common_recent_file_settings;

/// The menu of the recent files, the newest first. Unreadable files are disabled as soon as that is
/// known: the menu does not wait for a network that is down.
class RecentMenu : public QMenu
{
    Q_OBJECT

public:
    /// The settings are not owned and must outlive the menu.
    RecentMenu(QWidget* parent, common_recent_file_settings* settings);

    /// Makes the file the newest one.
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
    Answers m_answers; ///< of the last probe
    bool m_isChecking = false;
    QThreadPool m_thread; ///< its destructor waits for the probe, which has a time limit
};
