// SPDX-License-Identifier: MIT
#pragma once

#include "DiskThread.h"
#include "ListedRun.h"

#include <QObject>

#include <optional>

class ArchiveWatch;
class QAction;
class QMenu;
class QPushButton;
class RunListPart;

/// The actions on the selected runs, in the window's menu and in the list's context menu.
class RunActions : public QObject
{
    Q_OBJECT

public:
    /// Adds the actions to the menu and to the list. The arguments must outlive this object.
    RunActions(RunListPart* part, QMenu* menu, QWidget* window);

Q_SIGNALS:
    void recordRequested(int number);
    void againRequested(int number);
    void resumeRequested(int number);

    /// A sentence for the status line.
    void reported(const QString& text);

private:
    struct Row;
    static const Row rows[];

    void addAction(const Row& row, QMenu* menu);
    void makeResumeButton();
    void update();
    void updateResume(const QVector<ListedRun>& runs);
    void lookAtResumable();
    void showResumable(const QString& obstacle);
    QAction* action(const char* name) const;

    void showRecords();
    void runAgain();
    void resume();
    void openFolders();
    void copyCommands();
    void exportRecord();
    void deleteRecords();
    void showAll();
    void focusFilter();
    void onNotRemoved(const QVector<int>& numbers);

    RunListPart* m_part;
    QWidget* m_window;
    QPushButton* m_resumeButton;
    std::optional<RunRecord> m_resumable; ///< of the selected run
    bool m_isLooking = false;             ///< whether the disk is being asked about it
    bool m_isLookWanted = false;          ///< whether it has changed since
    DiskThread m_disk;                    ///< the last member: its jobs use the others
};
