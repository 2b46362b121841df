// SPDX-License-Identifier: MIT
#include "MessageView.h"

#include "MessageTableModel.h"

#include <QAction>
#include <QClipboard>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QTableView>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>

namespace {

constexpr int sliceSize = 5000; // rows searched in one turn of the event loop

const QSet<MessageStore::Type>& outputTypes()
{
    static const QSet<MessageStore::Type> types = {
        common_IProcessMessage::Output, common_IProcessMessage::LineFeed,
        common_IProcessMessage::Error,  common_IProcessMessage::Warning,
        common_IProcessMessage::Notice, common_IProcessMessage::Variable};
    return types;
}

} // namespace

MessageView::MessageView(const MessageStore* store, const QVector<Kind>& kinds, QWidget* parent)
    : QWidget(parent)
    , m_store(store)
    , m_kinds(kinds)
    , m_model(new MessageTableModel(store, this))
    , m_table(new QTableView(this))
{
    auto* layout = new QVBoxLayout(this);
    makeTable(kinds.isEmpty());
    makeBar(kinds);
    layout->addWidget(m_table, 1);
    makeKeys();
    m_searchTimer.setSingleShot(true);
    connect(&m_searchTimer, &QTimer::timeout, this, &MessageView::continueSearch);
    connect(store, &MessageStore::grown, this, &MessageView::updateCounts);
    updateTypes();
    updateCounts();
}

void MessageView::makeBar(const QVector<Kind>& kinds)
{
    auto* bar = new QHBoxLayout;
    makeKinds(kinds, bar);
    m_filter = new QLineEdit(this);
    m_filter->setObjectName(QStringLiteral("messageFilterEdit"));
    m_filter->setPlaceholderText(tr("Show only lines with..."));
    m_filter->setAccessibleName(tr("Text that messages must contain"));
    m_filter->setClearButtonEnabled(true);
    connect(m_filter, &QLineEdit::textChanged, m_model, &MessageTableModel::setText);
    bar->addWidget(m_filter, 1);
    makeSearch(bar);
    static_cast<QVBoxLayout*>(layout())->addLayout(bar);
}

void MessageView::makeKinds(const QVector<Kind>& kinds, QHBoxLayout* layout)
{
    for (const Kind& kind : kinds) {
        auto* button = new QToolButton(this);
        button->setObjectName(QLatin1String(kind.text) + QStringLiteral("Button"));
        button->setCheckable(true);
        button->setChecked(kind.isShown);
        connect(button, &QToolButton::toggled, this, &MessageView::updateTypes);
        layout->addWidget(button);
        m_buttons.append(button);
    }
}

void MessageView::makeSearch(QHBoxLayout* layout)
{
    m_find = new QLineEdit(this);
    m_find->setObjectName(QStringLiteral("messageFindEdit"));
    m_find->setPlaceholderText(tr("Find (Ctrl+F, F3)"));
    m_find->setAccessibleName(tr("Text to find"));
    m_find->setClearButtonEnabled(true);
    m_found = new QLabel(this);
    m_found->setObjectName(QStringLiteral("messageFoundLabel"));
    connect(m_find, &QLineEdit::returnPressed, this, [this] { find(true); });
    layout->addWidget(m_find, 1);
    layout->addWidget(m_found);
}

void MessageView::makeTable(bool isOutput)
{
    m_table->setObjectName(isOutput ? QStringLiteral("outputTable")
                                    : QStringLiteral("messageTable"));
    m_table->setAccessibleName(isOutput ? tr("Output") : tr("Messages"));
    m_table->setModel(m_model);
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setTabKeyNavigation(false);
    m_table->setWordWrap(false);
    m_table->setShowGrid(false);
    m_table->verticalHeader()->hide();
    m_table->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    m_table->verticalHeader()->setDefaultSectionSize(m_table->fontMetrics().height() + 4);
    m_table->horizontalHeader()->setStretchLastSection(true);
    m_table->horizontalHeader()->setHighlightSections(false);
    if (isOutput) {
        m_table->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
        m_table->setColumnHidden(MessageTableModel::TypeColumn, true);
    }
    m_table->setColumnWidth(MessageTableModel::TimeColumn,
                            m_table->fontMetrics().horizontalAdvance(QStringLiteral("00:00:00  ")));
    connect(m_table, &QTableView::activated, this, &MessageView::activated);
    connect(m_table->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &MessageView::currentChanged);
}

void MessageView::makeKeys()
{
    const auto addKey = [this](const QKeySequence& key, const auto& deed) {
        auto* action = new QAction(this);
        action->setShortcut(key);
        action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
        connect(action, &QAction::triggered, this, deed);
        addAction(action);
    };
    addKey(QKeySequence::Find, [this] {
        m_find->setFocus(Qt::ShortcutFocusReason);
        m_find->selectAll();
    });
    addKey(Qt::Key_F3, [this] { find(true); });
    addKey(Qt::SHIFT + Qt::Key_F3, [this] { find(false); });
    auto* copying = new QAction(tr("&Copy"), m_table);
    copying->setShortcut(QKeySequence::Copy);
    copying->setShortcutContext(Qt::WidgetShortcut);
    connect(copying, &QAction::triggered, this, &MessageView::copy);
    m_table->addAction(copying);
    m_table->setContextMenuPolicy(Qt::ActionsContextMenu);
}

void MessageView::updateTypes()
{
    if (m_kinds.isEmpty()) {
        m_model->setTypes(outputTypes());
        return;
    }
    QSet<MessageStore::Type> types;
    for (int i = 0; i < m_kinds.size(); ++i) {
        if (m_buttons.at(i)->isChecked()) {
            types.insert(m_kinds.at(i).type);
        }
    }
    m_model->setTypes(types);
}

void MessageView::updateCounts()
{
    for (int i = 0; i < m_kinds.size(); ++i) {
        m_buttons.at(i)->setText(QStringLiteral("%1 (%2)")
                                     .arg(tr(m_kinds.at(i).text))
                                     .arg(m_store->count(m_kinds.at(i).type)));
    }
}

QString MessageView::currentText() const
{
    return m_model->text(m_table->currentIndex().row());
}

void MessageView::setFilter(const QString& text)
{
    m_filter->setText(text);
}

// Searches from the current row on, continues at the other end, and works in slices.
void MessageView::find(bool isForward)
{
    const int rows = m_model->rowCount();
    m_found->clear();
    if (m_find->text().isEmpty() || rows == 0) {
        return;
    }
    const int step = isForward ? 1 : -1;
    const int current = m_table->currentIndex().row();
    const int first = current < 0 ? (isForward ? 0 : rows - 1) : current + step;
    m_search = {m_find->text(), (first + rows) % rows, rows, step};
    continueSearch();
}

void MessageView::continueSearch()
{
    const int rows = m_model->rowCount();
    for (int looked = 0; looked < sliceSize && m_search.left > 0 && m_search.row < rows; ++looked) {
        if (m_model->text(m_search.row).contains(m_search.text, Qt::CaseInsensitive)) {
            m_table->setCurrentIndex(m_model->index(m_search.row, MessageTableModel::TextColumn));
            return;
        }
        m_search.row = (m_search.row + m_search.step + rows) % rows;
        --m_search.left;
    }
    if (m_search.left > 0 && m_search.row < rows) {
        m_searchTimer.start();
    } else {
        m_found->setText(tr("Not found"));
    }
}

void MessageView::copy()
{
    QModelIndexList rows = m_table->selectionModel()->selectedRows();
    std::sort(rows.begin(), rows.end());
    QStringList lines;
    for (const QModelIndex& row : qAsConst(rows)) {
        QString line = m_model->text(row.row());
        while (line.endsWith(QLatin1Char('\n'))) {
            line.chop(1);
        }
        lines.append(line);
    }
    QGuiApplication::clipboard()->setText(lines.join(QLatin1Char('\n')));
}
