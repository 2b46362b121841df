// SPDX-License-Identifier: MIT
#include "QueuePanel.h"

#include "RunOptionWords.h"
#include "RunQueue.h"

#include <VisibleText.h>

#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

#include <algorithm>

namespace {

constexpr int idRole = Qt::UserRole;
constexpr int mostRows = 5; // visible without scrolling

QString textOf(const QueuedRun& run)
{
    QStringList parts{suite::visibleFileName(run.model), run.component};
    parts += RunOptionWords::of(run.options);
    if (run.isHeld) {
        parts.append(QueuePanel::tr("held"));
    }
    return parts.join(QStringLiteral("  \u00b7  "));
}

QListWidgetItem* itemOf(const QueuedRun& run)
{
    auto* const item = new QListWidgetItem(textOf(run));
    item->setData(idRole, run.id);
    item->setToolTip(suite::visiblePath(run.model).toHtmlEscaped());
    return item;
}

} // namespace

QueuePanel::QueuePanel(RunQueue& queue, QWidget* parent)
    : QWidget(parent), m_queue(queue), m_label(new QLabel(this)), m_list(new QListWidget(this))
{
    setObjectName(QStringLiteral("queuePanel"));
    m_label->setObjectName(QStringLiteral("queueLabel"));
    m_label->setBuddy(m_list);
    m_list->setObjectName(QStringLiteral("queueList"));
    m_list->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_list->setUniformItemSizes(true);
    connect(m_list, &QListWidget::itemSelectionChanged, this, &QueuePanel::updateButtons);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    auto* const head = new QWidget(this);
    makeButtons(head);
    layout->addWidget(head);
    layout->addWidget(m_list);
    connect(&m_queue, &RunQueue::changed, this, &QueuePanel::update);
    update();
}

void QueuePanel::makeButtons(QWidget* head)
{
    auto* const layout = new QHBoxLayout(head);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_label, 1);
    m_releaseAll =
        addButton(head, "releaseAllButton", tr("Run all"),
                  tr("Let all held runs begin when their turn comes"), &QueuePanel::releaseAll);
    m_hold = addButton(head, "holdButton", tr("Hold"),
                       tr("Pass the selected runs over, or let them begin"), &QueuePanel::hold);
    m_up = addButton(head, "queueUpButton", tr("Up"), tr("Let the selected run begin earlier"),
                     &QueuePanel::moveUp);
    m_down = addButton(head, "queueDownButton", tr("Down"), tr("Let the selected run begin later"),
                       &QueuePanel::moveDown);
    m_remove = addButton(head, "queueRemoveButton", tr("Remo&ve"),
                         tr("Take the selected runs out of the queue"), &QueuePanel::remove);
    connect(new QShortcut(QKeySequence::Delete, m_list, nullptr, nullptr, Qt::WidgetShortcut),
            &QShortcut::activated, this, &QueuePanel::remove);
}

QPushButton* QueuePanel::addButton(QWidget* head, const char* name, const QString& text,
                                   const QString& toolTip, void (QueuePanel::*slot)()) const
{
    auto* const button = new QPushButton(text, head);
    button->setObjectName(QLatin1String(name));
    button->setToolTip(toolTip);
    connect(button, &QPushButton::clicked, this, slot);
    head->layout()->addWidget(button);
    return button;
}

// The selection moves with its runs.
void QueuePanel::update()
{
    const QVector<int> selected = selectedIds();
    const QSignalBlocker blocker(m_list);
    m_list->clear();
    for (const QueuedRun& run : m_queue.runs()) {
        m_list->addItem(itemOf(run));
        m_list->item(m_list->count() - 1)->setSelected(selected.contains(run.id));
    }
    const int count = m_queue.runs().size();
    m_label->setText(tr("&Waiting runs: %1").arg(count));
    const int rows = qBound(1, count, mostRows);
    m_list->setFixedHeight(rows * m_list->sizeHintForRow(0) + 2 * m_list->frameWidth());
    setVisible(count > 0);
    updateButtons();
}

void QueuePanel::updateButtons()
{
    const QVector<QueuedRun>& runs = m_queue.runs();
    const bool isAnyHeld =
        std::any_of(runs.begin(), runs.end(), [](const QueuedRun& run) { return run.isHeld; });
    const int row = selectedRow();
    const bool isSelected = !selectedIds().isEmpty();
    m_releaseAll->setEnabled(isAnyHeld);
    m_hold->setText(areSelectedHeld() ? tr("Release") : tr("Hold"));
    m_hold->setEnabled(isSelected);
    m_remove->setEnabled(isSelected);
    m_up->setEnabled(row > 0);
    m_down->setEnabled(row >= 0 && row + 1 < runs.size());
}

QVector<int> QueuePanel::selectedIds() const
{
    QVector<int> ids;
    const QList<QListWidgetItem*> items = m_list->selectedItems();
    for (const QListWidgetItem* item : items) {
        ids.append(item->data(idRole).toInt());
    }
    return ids;
}

// Returns -1 unless exactly one run is selected.
int QueuePanel::selectedRow() const
{
    const QList<QListWidgetItem*> items = m_list->selectedItems();
    return items.size() == 1 ? m_list->row(items.first()) : -1;
}

bool QueuePanel::areSelectedHeld() const
{
    const QVector<int> ids = selectedIds();
    const QVector<QueuedRun>& runs = m_queue.runs();
    return !ids.isEmpty() && std::all_of(runs.begin(), runs.end(), [&ids](const QueuedRun& run) {
        return run.isHeld || !ids.contains(run.id);
    });
}

void QueuePanel::hold()
{
    const bool isHeld = !areSelectedHeld();
    const QVector<int> ids = selectedIds();
    for (const int id : ids) {
        m_queue.setHeld(id, isHeld);
    }
}

void QueuePanel::releaseAll()
{
    const QVector<QueuedRun> runs = m_queue.runs();
    for (const QueuedRun& run : runs) {
        m_queue.setHeld(run.id, false);
    }
}

void QueuePanel::moveUp()
{
    moveBy(-1);
}

void QueuePanel::moveDown()
{
    moveBy(1);
}

void QueuePanel::moveBy(int rows)
{
    const int row = selectedRow();
    if (row >= 0) {
        m_queue.move(m_queue.runs().at(row).id, row + rows);
    }
}

void QueuePanel::remove()
{
    const QVector<int> ids = selectedIds();
    for (const int id : ids) {
        m_queue.remove(id);
    }
}
