// SPDX-License-Identifier: MIT
#pragma once

#include "RunArchive.h"

#include <QWidget>

class ArchiveWatch;
class QHBoxLayout;
class QLabel;
class RunFilterBar;
class RunListView;
class RunTableModel;

/// The part of the window with the list of runs and its filter. Follows the archive.
class RunListPart : public QWidget
{
    Q_OBJECT

public:
    /// The runs must outlive this object.
    RunListPart(RunTableModel* runs, RunArchive archive, QWidget* parent);

    /// Puts the button beside the filter and takes the ownership.
    void addButton(QWidget* button);

    /// Puts the button below the list, beside the bar, and takes the ownership.
    void addButtonBelow(QWidget* button);

    /// Adds a bar below the list, beside the buttons, and takes the ownership.
    void addBar(QWidget* bar);

    /// Puts the filter before the list in the tab order. To be called after this widget has been
    /// added to the window.
    void orderTabs();

    RunListView* list() const { return m_list; }
    ArchiveWatch* archive() const { return m_archive; }

    /// Hides the runs that have ended; their records stay.
    void clearEnded();

    /// Shows all runs again: resets the filter and undoes clearEnded().
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
    QHBoxLayout* m_foot; ///< below the list: a bar, and buttons
};
