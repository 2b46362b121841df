#pragma once

#include "ListedRun.h"

#include <QAbstractTableModel>
#include <QTimer>

class WindowRun;

/// The runs of the archive and those of this session, which are among them as soon as they have a
/// record. In no particular order.
class RunTableModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column {
        ModelColumn,
        ComponentColumn,
        StateColumn,
        ProgressColumn,
        ElapsedColumn,
        RemainingColumn,
        NumberColumn,
        FolderColumn,
        MessagesColumn,
        StartedColumn,
        PlaceColumn,
        ColumnCount
    };

    enum Role {
        SortRole = Qt::UserRole, ///< what to compare
        SearchRole               ///< all that a filter looks into, in the first column
    };

    explicit RunTableModel(QObject* parent);

    /// The run stays its parent's.
    void add(WindowRun* run);

    /// Takes the run out of the list; its record stays.
    void remove(WindowRun* run);

    /// Puts the records into the list, or in place of those of the same numbers.
    void setRecords(const QVector<RunRecord>& records);

    /// Takes the records out of the list; runs of this session stay.
    void removeRecords(const QVector<int>& numbers);

    /// Null for a run of another session, and where there is no such row.
    WindowRun* run(int row) const;

    /// The row must exist.
    const ListedRun& listedRun(int row) const { return m_rows.at(row); }

    /// -1 when there is none.
    int rowOf(const WindowRun* run) const;

    /// Of this session, newest last.
    const QVector<WindowRun*>& runs() const { return m_runs; }
    QVector<WindowRun*> runningRuns() const;

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    void onChanged(WindowRun* run);
    int rowOfNumber(int number) const;
    void setRecord(int row, const RunRecord& record);
    void removeRow(int row);
    void reportChange(int row);
    void reportTimes();

    QVector<ListedRun> m_rows;
    QVector<WindowRun*> m_runs;
    QTimer m_timesTimer;
};
