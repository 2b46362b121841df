// SPDX-License-Identifier: MIT
#pragma once

#include "ListedRun.h"

#include <QAbstractTableModel>
#include <QTimer>

class WindowRun;

/// The runs of the archive and of this session, unordered. A run of this session and its record are
/// one row.
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
        SortRole = Qt::UserRole, ///< the value to sort by
        SearchRole               ///< all texts that a filter searches; first column only
    };

    explicit RunTableModel(QObject* parent);

    /// Adds a run of this session, without taking ownership.
    void add(WindowRun* run);

    /// Removes the run from the list; its record stays.
    void remove(WindowRun* run);

    /// Adds the records, or replaces those with the same numbers.
    void setRecords(const QVector<RunRecord>& records);

    /// Removes the records from the list; runs of this session stay.
    void removeRecords(const QVector<int>& numbers);

    /// The run of a row; null for a run of another session and for an invalid row.
    WindowRun* run(int row) const;

    /// The row must exist.
    const ListedRun& listedRun(int row) const { return m_rows.at(row); }

    /// The row of a run of this session; -1 if there is none.
    int rowOf(const WindowRun* run) const;

    /// The runs of this session, the newest last.
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
