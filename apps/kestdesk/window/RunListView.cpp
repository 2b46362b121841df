#include "RunListView.h"

#include "RunTableModel.h"

#include <QHeaderView>

RunListView::RunListView(RunTableModel* runs, QWidget* parent) : QTableView(parent), m_runs(runs)
{
    setObjectName(QStringLiteral("runList"));
    setAccessibleName(QStringLiteral("Runs of this session"));
    setModel(runs);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setTabKeyNavigation(false);
    setWordWrap(false);
    verticalHeader()->hide();
    horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    horizontalHeader()->setSectionResizeMode(RunTableModel::ModelColumn, QHeaderView::Stretch);
    horizontalHeader()->setHighlightSections(false);
    setContextMenuPolicy(Qt::ActionsContextMenu);
    connect(selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &RunListView::selectedRunChanged);
}

WindowRun* RunListView::selectedRun() const
{
    return m_runs->run(selectionModel()->currentIndex().row());
}

void RunListView::selectNewestRun()
{
    selectRow(m_runs->rowCount() - 1);
}
