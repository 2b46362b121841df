#pragma once

#include <QTableView>

class RunTableModel;
class WindowRun;

/// The list of the runs of this session, of which one is selected.
class RunListView : public QTableView
{
    Q_OBJECT

public:
    /// The runs are not owned and must outlive the list.
    RunListView(RunTableModel* runs, QWidget* parent);

    /// Null when there is none.
    WindowRun* selectedRun() const;

    void selectNewestRun();

Q_SIGNALS:
    void selectedRunChanged();

private:
    RunTableModel* m_runs;
};
