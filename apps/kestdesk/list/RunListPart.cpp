// SPDX-License-Identifier: MIT
#include "RunListPart.h"

#include "ArchiveWatch.h"
#include "RunFilter.h"
#include "RunFilterBar.h"
#include "RunListView.h"
#include "RunTableModel.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

#include <utility>

RunListPart::RunListPart(RunTableModel* runs, RunArchive archive, QWidget* parent)
    : QWidget(parent)
    , m_runs(runs)
    , m_archive(new ArchiveWatch(std::move(archive), this))
    , m_list(new RunListView(runs, this))
    , m_filter(new RunFilterBar(m_list->filter(), this))
    , m_label(new QLabel(tr("His&tory:"), this))
    , m_count(new QLabel(this))
    , m_foot(new QHBoxLayout)
{
    m_label->setBuddy(m_list);
    m_count->setObjectName(QStringLiteral("runCountLabel"));
    auto* head = new QHBoxLayout;
    head->addWidget(m_label);
    head->addWidget(m_count);
    head->addWidget(m_filter, 1);
    head->setObjectName(QStringLiteral("runListHead"));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(head);
    layout->addWidget(m_list, 1);
    layout->addLayout(m_foot);
    connect(m_archive, &ArchiveWatch::changed, m_runs, &RunTableModel::setRecords);
    connect(m_archive, &ArchiveWatch::removed, m_runs, &RunTableModel::removeRecords);
    for (const auto signal :
         {&QAbstractItemModel::rowsInserted, &QAbstractItemModel::rowsRemoved}) {
        connect(m_list->filter(), signal, this, &RunListPart::updateCount);
        connect(m_runs, signal, this, &RunListPart::updateCount);
    }
    connect(m_list->filter(), &QAbstractItemModel::modelReset, this, &RunListPart::updateCount);
}

void RunListPart::orderTabs()
{
    setTabOrder(m_filter->lastControl(), m_list);
}

void RunListPart::addButton(QWidget* button)
{
    layout()->itemAt(0)->layout()->addWidget(button);
}

void RunListPart::addButtonBelow(QWidget* button)
{
    m_foot->addWidget(button);
}

void RunListPart::addBar(QWidget* bar)
{
    m_foot->insertWidget(0, bar, 1);
}

void RunListPart::clearEnded()
{
    m_list->filter()->hideEnded();
}

void RunListPart::showAll()
{
    m_filter->clear();
}

void RunListPart::focusFilter()
{
    m_filter->focusText();
}

// Shows the count only if runs are left out.
void RunListPart::updateCount()
{
    const int shown = m_list->filter()->rowCount();
    const int all = m_runs->rowCount();
    m_count->setText(shown == all ? QString() : tr("%1 of %2").arg(shown).arg(all));
}
