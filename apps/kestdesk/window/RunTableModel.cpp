#include "RunTableModel.h"

#include "RunTimes.h"
#include "ToolTip.h"
#include "WindowRun.h"

#include <VisibleText.h>

#include <common_IIconUtility.h>
#include <common_ServiceOf.h>

#include <QDir>
#include <QIcon>

#include <algorithm>
#include <iterator>

namespace {

constexpr int timesInterval = 1000; // ms

struct ColumnRow
{
    const char* header;
    bool isNumber;
    QString (*text)(const WindowRun& shown);
};

// clang-format off
const ColumnRow columns[RunTableModel::ColumnCount] = {
    {"Model",     false, [](const WindowRun& shown) { return suite::visibleFileName(shown.run().model()); }},
    {"Component", false, [](const WindowRun& shown) { return shown.run().componentName(); }},
    {"State",     false, [](const WindowRun& shown) { return shown.stateText(); }},
    {"Progress",  true,  [](const WindowRun& shown) { return QStringLiteral("%1 %").arg(shown.run().totalPercentage()); }},
    {"Elapsed",   true,  [](const WindowRun& shown) { return RunTimes::text(shown.run().elapsed()); }},
    {"Remaining", true,  [](const WindowRun& shown) { return shown.remainingText(); }},
};

const struct { Run::State state; const char* icon; } stateIcons[] = {
    {Run::State::Waiting,    "fault"},
    {Run::State::Running,    "play"},
    {Run::State::Stopping,   "exclude"},
    {Run::State::Valid,      "valid"},
    {Run::State::Fault,      "fault"},
    {Run::State::NotStarted, "fault"},
    {Run::State::Stopped,    "exclude"},
};
// clang-format on

QIcon stateIcon(Run::State state)
{
    const auto* row =
        std::find_if(std::begin(stateIcons), std::end(stateIcons),
                     [state](const auto& candidate) { return candidate.state == state; });
    return GET_SERVICE(common_IIconUtility)->getIcon(QLatin1String(row->icon));
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
    beginInsertRows(QModelIndex(), m_runs.size(), m_runs.size());
    m_runs.append(run);
    endInsertRows();
    connect(run, &WindowRun::changed, this, [this, run] { reportChange(run); });
}

void RunTableModel::remove(WindowRun* run)
{
    const int row = m_runs.indexOf(run);
    if (row >= 0) {
        beginRemoveRows(QModelIndex(), row, row);
        m_runs.removeAt(row);
        endRemoveRows();
        disconnect(run, nullptr, this, nullptr);
    }
}

WindowRun* RunTableModel::run(int row) const
{
    return m_runs.value(row);
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
    return parent.isValid() ? 0 : m_runs.size();
}

int RunTableModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant RunTableModel::data(const QModelIndex& index, int role) const
{
    const WindowRun* shown = run(index.row());
    if (shown == nullptr || index.column() >= ColumnCount) {
        return QVariant();
    }
    const ColumnRow& column = columns[index.column()];
    switch (role) {
    case Qt::DisplayRole:
        return column.text(*shown);
    case Qt::AccessibleDescriptionRole:
        return index.column() == StateColumn ? QVariant(shown->explanation()) : QVariant();
    case Qt::ToolTipRole:
        return ToolTip::of(index.column() == StateColumn
                               ? shown->explanation()
                               : QDir::toNativeSeparators(shown->run().model()));
    case Qt::TextAlignmentRole:
        return int(Qt::AlignVCenter | (column.isNumber ? Qt::AlignRight : Qt::AlignLeft));
    case Qt::DecorationRole:
        return index.column() == StateColumn ? QVariant(stateIcon(shown->run().state()))
                                             : QVariant();
    default:
        return QVariant();
    }
}

QVariant RunTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole || section >= ColumnCount) {
        return QVariant();
    }
    return QLatin1String(columns[section].header);
}

void RunTableModel::reportChange(WindowRun* run)
{
    const int row = m_runs.indexOf(run);
    Q_EMIT dataChanged(index(row, 0), index(row, ColumnCount - 1));
}

void RunTableModel::reportTimes()
{
    for (WindowRun* run : qAsConst(m_runs)) {
        if (run->run().isRunning()) {
            reportChange(run);
        }
    }
}
