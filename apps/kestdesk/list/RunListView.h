#pragma once

#include <QTableView>

class RunFilter;
class RunTableModel;
class WindowRun;
struct ListedRun;

/// The list of runs, of which any number can be selected.
class RunListView : public QTableView
{
    Q_OBJECT

public:
    /// The runs are not owned and must outlive the list.
    RunListView(RunTableModel* runs, QWidget* parent);

    /// The runs that it shows.
    RunFilter* filter() const { return m_filter; }

    /// The current run, if this session has started it; null when it has not, or without one.
    WindowRun* selectedRun() const;

    /// The runs that are selected, as they are shown.
    QVector<ListedRun> selectedRuns() const;

    /// Selects a run alone.
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
