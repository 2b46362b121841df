#pragma once

#include "RunArchive.h"

#include <QWidget>

class ArchiveWatch;
class QLabel;
class RunFilterBar;
class RunListView;
class RunTableModel;

/// The part of the window with the list of runs and its filter. It follows the archive.
class RunListPart : public QWidget
{
    Q_OBJECT

public:
    /// The runs must outlive this. The button stands beside the filter.
    RunListPart(RunTableModel* runs, RunArchive archive, QWidget* parent);

    void addButton(QWidget* button);

    /// Lets the tab key reach the filter before the list. To be called when this has its place in
    /// the window.
    void orderTabs();

    RunListView* list() const { return m_list; }
    ArchiveWatch* archive() const { return m_archive; }

    /// Leaves out the runs that have ended; their records stay.
    void clearEnded();

    /// Shows all runs again, whatever was filtered or cleared.
    void showAll();

    void focusFilter();

private:
    void updateCount();

    RunTableModel* m_runs;
    ArchiveWatch* m_archive;
    RunListView* m_list;
    RunFilterBar* m_filter;
    QLabel* m_label;
    QLabel* m_count;
};
