// SPDX-License-Identifier: MIT
#pragma once

#include <QTableView>

class RunFilter;
class RunTableModel;
class WindowRun;
struct ListedRun;

/// The table of runs. Any number of rows can be selected.
class RunListView : public QTableView
{
    Q_OBJECT

public:
    /// The runs are not owned and must outlive the list.
    RunListView(RunTableModel* runs, QWidget* parent);

    /// The shown runs. Owned by this object.
    RunFilter* filter() const { return m_filter; }

    /// The current run; null if there is none or if another session has started it.
    WindowRun* selectedRun() const;

    /// The selected runs, in the order of the rows.
    QVector<ListedRun> selectedRuns() const;

    /// Selects this run only.
    void select(const WindowRun* run);

    void keyboardSearch(const QString& search) override;

Q_SIGNALS:
    void selectedRunChanged();

protected:
    int sizeHintForColumn(int column) const override;

private:
    void arrangeColumns();
    void scheduleFit();
    void fitColumns();
    int widestText(int column) const;
    int headerWidth(int column) const;

    RunTableModel* m_runs;
    RunFilter* m_filter;
    bool m_isFitScheduled = false;
};
