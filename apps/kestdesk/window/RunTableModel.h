#pragma once

#include <QAbstractTableModel>
#include <QTimer>

class WindowRun;

/// The runs of this session, newest last: model, component, state, progress and times.
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
        ColumnCount
    };

    explicit RunTableModel(QObject* parent);

    /// The run stays its parent's.
    void add(WindowRun* run);

    /// Takes the run out of the list.
    void remove(WindowRun* run);

    /// Null when there is no such row.
    WindowRun* run(int row) const;

    const QVector<WindowRun*>& runs() const { return m_runs; }
    QVector<WindowRun*> runningRuns() const;

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    void reportChange(WindowRun* run);
    void reportTimes();

    QVector<WindowRun*> m_runs;
    QTimer m_timesTimer;
};
