// SPDX-License-Identifier: MIT
#include "RunTableModel.h"

#include "RunTexts.h"
#include "ToolTip.h"
#include "WindowRun.h"

#include <VisibleText.h>

#include <common_IIconUtility.h>
#include <common_ServiceOf.h>

#include <QDir>
#include <QFileInfo>
#include <QHash>
#include <QIcon>
#include <QLocale>

#include <algorithm>
#include <iterator>
#include <limits>

namespace {

constexpr int timesInterval = 1000; // milliseconds

struct ColumnRow
{
    const char* header;
    bool isNumber;
    QString (*text)(const ListedRun& row);
    QVariant (*sortKey)(const ListedRun& row);
};

QString folderOf(const ListedRun& row)
{
    return row.folder();
}

QString remainingText(const ListedRun& row)
{
    return row.run != nullptr ? row.run->remainingText() : QString();
}

QString numberText(const ListedRun& row)
{
    return row.number() > 0 ? QString::number(row.number()) : QString();
}

// Today's runs need no date, and this year's no year.
QString startedText(const ListedRun& row)
{
    const QDateTime time = row.started().toLocalTime();
    const QDate today = QDate::currentDate();
    return time.toString(time.date() == today                 ? QStringLiteral("HH:mm:ss")
                         : time.date().year() == today.year() ? QStringLiteral("MM-dd HH:mm")
                                                              : QStringLiteral("yyyy-MM-dd"));
}

// One error outweighs any number of warnings.
QVariant messageKey(const ListedRun& row)
{
    constexpr qint64 manyWarnings = Q_INT64_C(1) << 32;
    return row.errors() * manyWarnings + row.warnings();
}

// A run without a number yet is newer than all that have one.
QVariant numberKey(const ListedRun& row)
{
    return row.number() > 0 ? row.number() : std::numeric_limits<int>::max();
}

QVariant remainingKey(const ListedRun& row)
{
    const auto time = row.run != nullptr ? row.run->remaining() : std::nullopt;
    return time.value_or(row.isRunning() ? -1 : -2);
}

QVariant startedKey(const ListedRun& row)
{
    return row.started().toMSecsSinceEpoch();
}

// clang-format off
const ColumnRow columns[RunTableModel::ColumnCount] = {
    {QT_TRANSLATE_NOOP("RunTableModel", "Model"),     false, [](const ListedRun& row) { return suite::visibleFileName(row.model()); },        nullptr},
    {QT_TRANSLATE_NOOP("RunTableModel", "Component"), false, [](const ListedRun& row) { return row.component(); },                            nullptr},
    {QT_TRANSLATE_NOOP("RunTableModel", "State"),     false, [](const ListedRun& row) { return row.stateText(); },                            nullptr},
    {QT_TRANSLATE_NOOP("RunTableModel", "Progress"),  true,  [](const ListedRun& row) { return QStringLiteral("%1 %").arg(row.progress()); }, [](const ListedRun& row) { return QVariant(row.progress()); }},
    {QT_TRANSLATE_NOOP("RunTableModel", "Elapsed"),   true,  [](const ListedRun& row) { return RunTexts::shortClockTime(row.elapsed()); },    [](const ListedRun& row) { return QVariant(row.elapsed()); }},
    {QT_TRANSLATE_NOOP("RunTableModel", "Remaining"), true,  remainingText,                                                                   remainingKey},
    {QT_TRANSLATE_NOOP("RunTableModel", "No."),       true,  numberText,                                                                      numberKey},
    {QT_TRANSLATE_NOOP("RunTableModel", "Folder"),    false, [](const ListedRun& row) { return suite::visiblePath(folderOf(row)); },          nullptr},
    {QT_TRANSLATE_NOOP("RunTableModel", "Messages"),  false, [](const ListedRun& row) { return row.messageText(); },                          messageKey},
    {QT_TRANSLATE_NOOP("RunTableModel", "Started"),   true,  startedText,                                                                     startedKey},
    {QT_TRANSLATE_NOOP("RunTableModel", "Where"),     false, [](const ListedRun& row) { return row.place(); },                                nullptr},
};
// clang-format on

QVariant sortKey(const ListedRun& row, const ColumnRow& column)
{
    return column.sortKey != nullptr ? column.sortKey(row) : QVariant(column.text(row));
}

QString searchText(const ListedRun& row)
{
    return QStringList({numberText(row), suite::visiblePath(row.model()), row.component(),
                        row.explanation(), row.stateText(), row.place()})
        .join(QLatin1Char('\n'));
}

QStringList textsOf(const ListedRun& row)
{
    QStringList texts{row.explanation()};
    for (const ColumnRow& column : columns) {
        texts.append(column.text(row));
    }
    return texts;
}

QString toolTipOf(const ListedRun& row, int column)
{
    switch (column) {
    case RunTableModel::StateColumn:
        return row.explanation();
    case RunTableModel::StartedColumn:
        return QLocale().toString(row.started().toLocalTime(), QLocale::LongFormat);
    default:
        return QDir::toNativeSeparators(row.model());
    }
}

} // namespace

RunTableModel::RunTableModel(QObject* parent) : QAbstractTableModel(parent)
{
    m_timesTimer.setInterval(timesInterval);
    connect(&m_timesTimer, &QTimer::timeout, this, &RunTableModel::reportTimes);
    m_timesTimer.start();
}

void RunTableModel::add(WindowRun* run)
{
    beginInsertRows(QModelIndex(), m_rows.size(), m_rows.size());
    ListedRun row;
    row.run = run;
    m_rows.append(row);
    m_runs.append(run);
    endInsertRows();
    connect(run, &WindowRun::changed, this, [this, run] { onChanged(run); });
}

// The list may contain the run's record already.
void RunTableModel::onChanged(WindowRun* run)
{
    int row = rowOf(run);
    if (run->number() > 0 && m_rows.at(row).record.number == 0) {
        const int record = rowOfNumber(run->number());
        if (record >= 0) {
            m_rows[row].record = m_rows.at(record).record;
            removeRow(record);
            row = rowOf(run);
        }
    }
    reportChange(row);
}

void RunTableModel::remove(WindowRun* run)
{
    const int row = rowOf(run);
    if (row < 0) {
        return;
    }
    disconnect(run, nullptr, this, nullptr);
    m_runs.removeOne(run);
    if (m_rows.at(row).record.number == 0) {
        removeRow(row);
    } else {
        m_rows[row].run = nullptr;
        reportChange(row);
    }
}

void RunTableModel::setRecords(const QVector<RunRecord>& records)
{
    QHash<int, int> rows; // by number
    for (int row = 0; row < m_rows.size(); ++row) {
        rows.insert(m_rows.at(row).number(), row);
    }
    QVector<ListedRun> added;
    for (const RunRecord& record : records) {
        const int row = rows.value(record.number, -1);
        if (row >= 0) {
            setRecord(row, record);
        } else {
            added.append({record, nullptr});
        }
    }
    if (!added.isEmpty()) {
        beginInsertRows(QModelIndex(), m_rows.size(), m_rows.size() + added.size() - 1);
        m_rows += added;
        endInsertRows();
    }
}

// Invisible changes are not reported, because views may sort and filter all rows after each report.
// The first record of a run is no such change: it decides what can be done with the run.
void RunTableModel::setRecord(int row, const RunRecord& record)
{
    ListedRun& changed = m_rows[row];
    const QStringList before = textsOf(changed);
    const bool isFirst = changed.record.number == 0;
    changed.record = record;
    if (isFirst || textsOf(changed) != before) {
        reportChange(row);
    }
}

void RunTableModel::removeRecords(const QVector<int>& numbers)
{
    for (const int number : numbers) {
        const int row = rowOfNumber(number);
        if (row >= 0) {
            removeRow(row);
        }
    }
}

WindowRun* RunTableModel::run(int row) const
{
    return m_rows.value(row).run;
}

int RunTableModel::rowOf(const WindowRun* run) const
{
    const auto found = std::find_if(m_rows.begin(), m_rows.end(),
                                    [run](const ListedRun& row) { return row.run == run; });
    return run == nullptr || found == m_rows.end() ? -1 : int(found - m_rows.begin());
}

// The row of a record, by its number; -1 if there is none or if it belongs to a run of this
// session.
int RunTableModel::rowOfNumber(int number) const
{
    const auto found = std::find_if(m_rows.begin(), m_rows.end(), [number](const ListedRun& row) {
        return row.run == nullptr && row.record.number == number;
    });
    return found == m_rows.end() ? -1 : int(found - m_rows.begin());
}

void RunTableModel::removeRow(int row)
{
    beginRemoveRows(QModelIndex(), row, row);
    m_rows.removeAt(row);
    endRemoveRows();
}

QVector<WindowRun*> RunTableModel::runningRuns() const
{
    QVector<WindowRun*> result;
    std::copy_if(m_runs.begin(), m_runs.end(), std::back_inserter(result),
                 [](const WindowRun* run) { return run->run().isRunning(); });
    return result;
}

int RunTableModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_rows.size();
}

int RunTableModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant RunTableModel::data(const QModelIndex& index, int role) const
{
    if (index.row() >= m_rows.size() || index.column() >= ColumnCount) {
        return QVariant();
    }
    const ListedRun& row = m_rows.at(index.row());
    const ColumnRow& column = columns[index.column()];
    const bool isState = index.column() == StateColumn;
    switch (role) {
    case Qt::DisplayRole:
        return column.text(row);
    case Qt::AccessibleDescriptionRole:
        return isState ? QVariant(row.explanation()) : QVariant();
    case Qt::ToolTipRole:
        return ToolTip::of(toolTipOf(row, index.column()));
    case Qt::TextAlignmentRole:
        return int(Qt::AlignVCenter | (column.isNumber ? Qt::AlignRight : Qt::AlignLeft));
    case Qt::DecorationRole:
        return isState
                   ? QVariant(GET_SERVICE(common_IIconUtility)->getIcon(QLatin1String(row.icon())))
                   : QVariant();
    case SortRole:
        return sortKey(row, column);
    case SearchRole:
        return searchText(row);
    default:
        return QVariant();
    }
}

QVariant RunTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole || section >= ColumnCount) {
        return QVariant();
    }
    return tr(columns[section].header);
}

void RunTableModel::reportChange(int row)
{
    Q_EMIT dataChanged(index(row, 0), index(row, ColumnCount - 1));
}

void RunTableModel::reportTimes()
{
    for (int row = 0; row < m_rows.size(); ++row) {
        if (m_rows.at(row).isRunning()) {
            reportChange(row);
        }
    }
}
