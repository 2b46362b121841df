// SPDX-License-Identifier: MIT
#include "RunFilter.h"

#include "RunTableModel.h"

#include <QFont>

#include <algorithm>

RunFilter::RunFilter(RunTableModel* runs, QObject* parent)
    : QSortFilterProxyModel(parent), m_runs(runs)
{
    // Connected before setSourceModel() connects the base class, so that the groups are up to date
    // when it sorts new rows.
    connect(runs, &QAbstractItemModel::rowsInserted, this, &RunFilter::countGroups);
    connect(runs, &QAbstractItemModel::rowsRemoved, this, &RunFilter::countGroups);
    setSourceModel(runs);
    RunFilter::sort(RunTableModel::StartedColumn, Qt::DescendingOrder);
}

void RunFilter::setText(const QString& text)
{
    m_words = text.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    invalidateFilter();
}

void RunFilter::setState(std::optional<RunRecord::State> state)
{
    m_state = state;
    invalidateFilter();
}

void RunFilter::setGrouped(bool grouped)
{
    m_isGrouped = grouped;
    countGroups();
    invalidate();
}

void RunFilter::hideEnded()
{
    for (int row = 0; row < m_runs->rowCount(); ++row) {
        const ListedRun& run = m_runs->listedRun(row);
        if (!run.isRunning() && run.number() > 0) {
            m_hidden.insert(run.number());
        }
    }
    invalidateFilter();
}

void RunFilter::showAll()
{
    m_hidden.clear();
    invalidateFilter();
}

bool RunFilter::startsGroup(int row) const
{
    const auto modelOf = [this](int each) {
        return m_runs->listedRun(mapToSource(index(each, 0)).row()).model();
    };
    return m_isGrouped && (row == 0 || modelOf(row) != modelOf(row - 1));
}

// The first run of a model shows how many there are.
QVariant RunFilter::data(const QModelIndex& index, int role) const
{
    const bool isHead = m_isGrouped && index.column() == RunTableModel::ModelColumn &&
                        (role == Qt::DisplayRole || role == Qt::FontRole) &&
                        startsGroup(index.row());
    QVariant value = QSortFilterProxyModel::data(index, role);
    if (!isHead) {
        return value;
    }
    if (role == Qt::FontRole) {
        QFont font;
        font.setBold(true);
        return font;
    }
    const int size = m_groups.value(m_runs->listedRun(mapToSource(index).row()).model()).size;
    return size == 1 ? value : tr("%1 (%2 runs)").arg(value.toString()).arg(size);
}

// Views call this with -1 for the order of the source.
void RunFilter::sort(int column, Qt::SortOrder order)
{
    if (column < 0) {
        QSortFilterProxyModel::sort(RunTableModel::StartedColumn, Qt::DescendingOrder);
    } else {
        QSortFilterProxyModel::sort(column, order);
    }
}

bool RunFilter::filterAcceptsRow(int row, const QModelIndex& /*parent*/) const
{
    const ListedRun& run = m_runs->listedRun(row);
    if (m_hidden.contains(run.number()) || (m_state && run.state() != *m_state)) {
        return false;
    }
    if (m_words.isEmpty()) {
        return true;
    }
    const QString text = m_runs->index(row, 0).data(RunTableModel::SearchRole).toString();
    return std::all_of(m_words.begin(), m_words.end(), [&text](const QString& word) {
        return text.contains(word, Qt::CaseInsensitive);
    });
}

// Equal rows are ordered by time, the newest first, whatever the sort order.
bool RunFilter::lessThan(const QModelIndex& left, const QModelIndex& right) const
{
    const bool isAscending = sortOrder() == Qt::AscendingOrder;
    const int groups = m_isGrouped ? groupOrder(left.row(), right.row()) : 0;
    if (groups != 0) {
        return (groups < 0) == isAscending;
    }
    const QVariant leftKey = left.data(RunTableModel::SortRole);
    const QVariant rightKey = right.data(RunTableModel::SortRole);
    if (leftKey != rightKey) {
        return leftKey.userType() == QMetaType::QString
                   ? leftKey.toString().localeAwareCompare(rightKey.toString()) < 0
                   : leftKey.toLongLong() < rightKey.toLongLong();
    }
    const QDateTime leftTime = m_runs->listedRun(left.row()).started();
    const QDateTime rightTime = m_runs->listedRun(right.row()).started();
    if (leftTime != rightTime) {
        return (leftTime > rightTime) == isAscending;
    }
    return (left.row() > right.row()) == isAscending;
}

// Returns a negative number if the left one comes first.
int RunFilter::groupOrder(int leftRow, int rightRow) const
{
    const QString left = m_runs->listedRun(leftRow).model();
    const QString right = m_runs->listedRun(rightRow).model();
    if (left == right) {
        return 0;
    }
    const qint64 leftNewest = m_groups.value(left).newest;
    const qint64 rightNewest = m_groups.value(right).newest;
    return leftNewest == rightNewest ? left.compare(right) : (leftNewest > rightNewest ? -1 : 1);
}

void RunFilter::countGroups()
{
    m_groups.clear();
    if (!m_isGrouped) {
        return;
    }
    for (int row = 0; row < m_runs->rowCount(); ++row) {
        const ListedRun& run = m_runs->listedRun(row);
        Group& group = m_groups[run.model()];
        group.newest = std::max(group.newest, run.started().toMSecsSinceEpoch());
        ++group.size;
    }
}
