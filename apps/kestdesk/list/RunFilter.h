// SPDX-License-Identifier: MIT
#pragma once

#include "RunRecord.h"

#include <QHash>
#include <QSet>
#include <QSortFilterProxyModel>

#include <optional>

class RunTableModel;

/// Filters and sorts the list of runs.
class RunFilter : public QSortFilterProxyModel
{
    Q_OBJECT

public:
    /// Shows all runs, the newest first. The runs are not owned and must outlive the filter.
    explicit RunFilter(RunTableModel* runs, QObject* parent);

    /// Shows only runs that contain all of the words in the path of the model, the component,
    /// state, outcome, place or number.
    void setText(const QString& text);

    /// Shows only runs in that state; all without one.
    void setState(std::optional<RunRecord::State> state);

    /// Keeps the runs of a model together, the model with the newest run first.
    void setGrouped(bool grouped);
    bool isGrouped() const { return m_isGrouped; }

    /// Hides all runs that have ended by now, until showAll().
    void hideEnded();
    void showAll();
    bool hasHidden() const { return !m_hidden.isEmpty(); }

    /// Whether the row is the first of its model. Always false if the runs are not grouped.
    bool startsGroup(int row) const;

    QVariant data(const QModelIndex& index, int role) const override;
    void sort(int column, Qt::SortOrder order) override;

protected:
    bool filterAcceptsRow(int row, const QModelIndex& parent) const override;
    bool lessThan(const QModelIndex& left, const QModelIndex& right) const override;

private:
    int groupOrder(int leftRow, int rightRow) const;
    void countGroups();

    /// The runs of one model.
    struct Group
    {
        qint64 newest = 0; ///< start of the newest run, milliseconds since 1970
        int size = 0;
    };

    RunTableModel* m_runs;
    QStringList m_words;
    std::optional<RunRecord::State> m_state;
    QSet<int> m_hidden;             ///< numbers of records
    QHash<QString, Group> m_groups; ///< by model
    bool m_isGrouped = false;
};
