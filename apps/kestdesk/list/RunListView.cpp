// SPDX-License-Identifier: MIT
#include "RunListView.h"

#include "RunFilter.h"
#include "RunTableModel.h"

#include <QHeaderView>
#include <QSet>
#include <QTimer>

#include <algorithm>

namespace {

using Model = RunTableModel;

// From left to right.
constexpr Model::Column shownOrder[] = {
    Model::NumberColumn,    Model::ModelColumn,    Model::FolderColumn,   Model::ComponentColumn,
    Model::StateColumn,     Model::MessagesColumn, Model::ProgressColumn, Model::ElapsedColumn,
    Model::RemainingColumn, Model::StartedColumn,  Model::PlaceColumn};

// The other columns may be elided; their tool tips show the whole text.
bool isFitted(int column)
{
    return column != Model::ModelColumn && column != Model::FolderColumn;
}

// These columns are shown only if a run has a text in them.
bool isShownOnlyWithText(int column)
{
    return column == Model::RemainingColumn || column == Model::MessagesColumn ||
           column == Model::PlaceColumn;
}

// Digits have one width in nearly all fonts: texts that differ in digits alone are measured once.
QString shape(QString text)
{
    for (QChar& each : text) {
        if (each.isDigit()) {
            each = QLatin1Char('0');
        }
    }
    return text;
}

} // namespace

RunListView::RunListView(RunTableModel* runs, QWidget* parent)
    : QTableView(parent), m_runs(runs), m_filter(new RunFilter(runs, this))
{
    setObjectName(QStringLiteral("runList"));
    setAccessibleName(tr("Runs"));
    setModel(m_filter);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setTabKeyNavigation(false);
    setWordWrap(false);
    setTextElideMode(Qt::ElideMiddle);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed); // else each change measures rows
    verticalHeader()->setDefaultSectionSize(verticalHeader()->minimumSectionSize());
    arrangeColumns();
    setContextMenuPolicy(Qt::ActionsContextMenu);
    connect(selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &RunListView::selectedRunChanged);
    for (const auto signal :
         {&QAbstractItemModel::rowsInserted, &QAbstractItemModel::rowsRemoved}) {
        connect(m_filter, signal, this, &RunListView::scheduleFit);
    }
    connect(m_filter, &QAbstractItemModel::dataChanged, this, &RunListView::scheduleFit);
    connect(m_filter, &QAbstractItemModel::layoutChanged, this, &RunListView::scheduleFit);
    fitColumns();
}

void RunListView::arrangeColumns()
{
    QHeaderView* const header = horizontalHeader();
    int place = 0;
    for (const Model::Column column : shownOrder) {
        header->moveSection(header->visualIndex(column), place++);
        header->setSectionResizeMode(column, isFitted(column) ? QHeaderView::Interactive
                                                              : QHeaderView::Stretch);
    }
    header->setHighlightSections(false);
    header->setMinimumSectionSize(fontMetrics().averageCharWidth() * 3);
    header->setSortIndicator(Model::StartedColumn, Qt::DescendingOrder);
    setSortingEnabled(true);
}

// Updates once for all changes in one turn of the event loop.
void RunListView::scheduleFit()
{
    if (!m_isFitScheduled) {
        m_isFitScheduled = true;
        QTimer::singleShot(0, this, &RunListView::fitColumns);
    }
}

void RunListView::fitColumns()
{
    m_isFitScheduled = false;
    QHeaderView* const header = horizontalHeader();
    for (int column = 0; column < m_filter->columnCount(); ++column) {
        if (isFitted(column)) {
            setColumnHidden(column, isShownOnlyWithText(column) && widestText(column) == 0);
            header->resizeSection(column, std::max(sizeHintForColumn(column), headerWidth(column)));
        }
    }
}

// The style reserves space for the sort indicator in every column, but only one column shows it.
int RunListView::headerWidth(int column) const
{
    const QString text = m_filter->headerData(column, Qt::Horizontal).toString();
    const int em = fontMetrics().averageCharWidth();
    const bool isSorted = horizontalHeader()->sortIndicatorSection() == column;
    return fontMetrics().horizontalAdvance(text) + (isSorted ? 4 * em : 2 * em);
}

// Width in pixels over all rows, including those that are scrolled out of view.
int RunListView::widestText(int column) const
{
    QSet<QString> measured;
    int width = 0;
    for (int row = 0; row < m_filter->rowCount(); ++row) {
        const QString text = shape(m_filter->index(row, column).data().toString());
        if (!measured.contains(text)) {
            measured.insert(text);
            width = std::max(width, fontMetrics().horizontalAdvance(text));
        }
    }
    return width;
}

int RunListView::sizeHintForColumn(int column) const
{
    const int margin = 2 * (style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, this) + 1);
    const int icon =
        column == Model::StateColumn
            ? style()->pixelMetric(QStyle::PM_SmallIconSize, nullptr, this) + 4 * margin
            : 0;
    return widestText(column) + icon + 2 * margin;
}

WindowRun* RunListView::selectedRun() const
{
    return m_runs->run(m_filter->mapToSource(selectionModel()->currentIndex()).row());
}

QVector<ListedRun> RunListView::selectedRuns() const
{
    QVector<ListedRun> result;
    QModelIndexList rows = selectionModel()->selectedRows();
    std::sort(rows.begin(), rows.end(), [](const QModelIndex& left, const QModelIndex& right) {
        return left.row() < right.row();
    });
    for (const QModelIndex& row : qAsConst(rows)) {
        result.append(m_runs->listedRun(m_filter->mapToSource(row).row()));
    }
    return result;
}

void RunListView::select(const WindowRun* run)
{
    const QModelIndex row = m_filter->mapFromSource(m_runs->index(m_runs->rowOf(run), 0));
    if (row.isValid()) {
        selectRow(row.row());
        scrollTo(row);
    }
}

// Typed text is the beginning of a model's name, whatever the current column.
void RunListView::keyboardSearch(const QString& search)
{
    const QModelIndex current = selectionModel()->currentIndex();
    if (current.isValid()) {
        selectionModel()->setCurrentIndex(current.siblingAtColumn(Model::ModelColumn),
                                          QItemSelectionModel::NoUpdate);
    }
    QTableView::keyboardSearch(search);
}
