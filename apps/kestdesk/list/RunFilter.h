#pragma once

#include "RunRecord.h"

#include <QHash>
#include <QSet>
#include <QSortFilterProxyModel>

#include <optional>

class RunTableModel;

/// The runs of the list that the user wants to see, in the order in which they do.
class RunFilter : public QSortFilterProxyModel
{
    Q_OBJECT

public:
    /// Shows all runs, the newest first. The runs are not owned and must outlive the filter.
    explicit RunFilter(RunTableModel* runs, QObject* parent);

    /// Words that a run must have all of: in the path of its model, its component, state, outcome,
    /// place or number.
    void setText(const QString& text);

    /// Only runs in that state; nothing for all.
    void setState(std::optional<RunRecord::State> state);

    /// Keeps the runs of a model together, the model with the newest run first.
    void setGrouped(bool grouped);
    bool isGrouped() const { return m_isGrouped; }

    /// Leaves out all runs that have ended by now, until showAll().
    void hideEnded();
    void showAll();
    bool hasHidden() const { return !m_hidden.isEmpty(); }

    /// Whether the row is the first of its model's, with the runs grouped.
    bool startsGroup(int row) const;

    QVariant data(const QModelIndex& index, int role) const override;
    void sort(int column, Qt::SortOrder order) override;

protected:
    bool filterAcceptsRow(int row, const QModelIndex& parent) const override;
    bool lessThan(const QModelIndex& left, const QModelIndex& right) const override;

private:
    int groupOrder(int leftRow, int rightRow) const;
    void countGroups();

    /// What is known of the runs of a model.
    struct Group
    {
        qint64 newest = 0; ///< milliseconds
        int size = 0;
    };

    RunTableModel* m_runs;
    QStringList m_words;
    std::optional<RunRecord::State> m_state;
    QSet<int> m_hidden;             ///< numbers of records
    QHash<QString, Group> m_groups; ///< by model
    bool m_isGrouped = false;
};
