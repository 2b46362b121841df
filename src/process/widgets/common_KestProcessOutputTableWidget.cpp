// SPDX-License-Identifier: MIT
#include "common_KestProcessOutputTableWidget.h"

#include <QtVersion.h>

#include <QAction>
#include <QClipboard>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QHeaderView>
#include <QTimer>

#include <algorithm>

namespace {

enum Column { IdentifierColumn, CountColumn, DescriptionColumn, ColumnCount };

constexpr int identifierWidth = 80;
constexpr int countWidth = 45;
constexpr int lightWeight = QtVersion::fontWeight(2);
constexpr qint64 fittingTime = 10; // milliseconds a turn

/// A count that is calculated when it is read.
class CountItem : public QTableWidgetItem
{
public:
    CountItem(const common_MessageOccurrences& occurrences, int row)
        : QTableWidgetItem(UserType), m_occurrences(occurrences), m_row(row)
    {}

    QVariant data(int role) const override
    {
        switch (role) {
        case Qt::DisplayRole:
        case Qt::EditRole:
            return QString::number(m_occurrences.count(m_row));
        case Qt::TextAlignmentRole:
            return static_cast<int>(Qt::AlignCenter);
        case Qt::ToolTipRole:
            return QStringLiteral("Number of occurrences of this message");
        default:
            return QTableWidgetItem::data(role);
        }
    }

private:
    const common_MessageOccurrences& m_occurrences;
    int m_row; ///< in the order of the messages
};

} // namespace

common_KestProcessOutputTableWidget::common_KestProcessOutputTableWidget(const QString& name,
                                                                         QWidget* parent)
    : QTableWidget(parent), m_name(name), m_endOfTurn([this] { onTurnEnded(); })
{
    addActionFor(QStringLiteral("Copy"), QStringLiteral("Ctrl+C"), SLOT(copy()));
    addActionFor(QStringLiteral("Select all"), QStringLiteral("Ctrl+A"), SLOT(selectAll()));
    addActionFor(QStringLiteral("Find in output"), QStringLiteral("Ctrl+F"), SLOT(findInOutput()));
    setContextMenuPolicy(Qt::ActionsContextMenu);

    setEditTriggers(NoEditTriggers);
    setColumnCount(ColumnCount);
    // With other styles and fonts, no section may be as narrow.
    horizontalHeader()->setMinimumSectionSize(
        std::min(horizontalHeader()->minimumSectionSize(), countWidth));
    setColumnWidth(IdentifierColumn, identifierWidth);
    setColumnWidth(CountColumn, countWidth);
    setWordWrap(true);
    setSelectionBehavior(SelectRows);
    setHorizontalHeaderLabels({QStringLiteral("%1 ID").arg(m_name), QStringLiteral("Count"),
                               QStringLiteral("Description")});
    horizontalHeader()->setStretchLastSection(true);
    horizontalHeader()->setVisible(true);
    verticalHeader()->setVisible(false);
    setFont(QFont(QStringLiteral("Courier"), 9, lightWeight, false));
    connect(horizontalHeader(), &QHeaderView::sectionResized, this, [this] { m_endOfTurn.ask(); });
}

common_KestProcessOutputTableWidget::~common_KestProcessOutputTableWidget() = default;

int common_KestProcessOutputTableWidget::add(const QString& message)
{
    if (message.indexOf(QLatin1Char(':')) > 0) {
        QString identifier = message.section(QLatin1Char(' '), 0, 0);
        identifier.remove(QLatin1Char(':'));
        addRow(identifier, message.mid(message.lastIndexOf(QLatin1Char(':')) + 1).simplified());
    }
    return rowCount();
}

void common_KestProcessOutputTableWidget::copy()
{
    QString lines;
    const QList<QTableWidgetSelectionRange> ranges = selectedRanges();
    for (const QTableWidgetSelectionRange& range : ranges) {
        for (int row = range.topRow(); row <= range.bottomRow(); ++row) {
            lines += QStringLiteral("%1 %2: %3\r\n")
                         .arg(m_name.toUpper(), item(row, IdentifierColumn)->text(),
                              item(row, DescriptionColumn)->text());
        }
    }
    QGuiApplication::clipboard()->setText(lines);
}

void common_KestProcessOutputTableWidget::findInOutput()
{
    if (currentItem()) {
        Q_EMIT cellDoubleClicked(currentRow(), currentColumn());
    }
}

void common_KestProcessOutputTableWidget::addActionFor(const QString& text, const QString& shortcut,
                                                       const char* slot)
{
    auto* const action = new QAction(text, this);
    action->setShortcut(QKeySequence(shortcut));
    connect(action, SIGNAL(triggered()), this, slot);
    addAction(action);
}

void common_KestProcessOutputTableWidget::addRow(const QString& identifier,
                                                 const QString& description)
{
    const int row = rowCount();
    m_occurrences.add(identifier, description);
    insertRow(row);
    auto* const identifierItem = new QTableWidgetItem(identifier);
    identifierItem->setTextAlignment(Qt::AlignCenter);
    setItem(row, IdentifierColumn, identifierItem);
    setItem(row, CountColumn, new CountItem(m_occurrences, row));
    setItem(row, DescriptionColumn, new QTableWidgetItem(description));
    m_endOfTurn.ask();
}

// Rows before the new ones are fitted again only if their heights may change. When that takes long,
// it is continued later.
void common_KestProcessOutputTableWidget::onTurnEnded()
{
    const QVector<int> widths = columnWidths();
    if (widths != m_fittedWidths || font() != m_fittedFont) {
        m_fittedWidths = widths;
        m_fittedFont = font();
        m_fittedRows = 0;
        m_heights.clear();
    }
    fitRows();
    if (m_fittedRows < rowCount()) {
        QTimer::singleShot(0, this, &common_KestProcessOutputTableWidget::onTurnEnded);
    }
    if (rowCount() > 0) {
        Q_EMIT model()->dataChanged(model()->index(0, CountColumn),
                                    model()->index(rowCount() - 1, CountColumn), {Qt::DisplayRole});
    }
}

// Otherwise the header would search all rows for the position of every row that it resizes.
void common_KestProcessOutputTableWidget::fitRows()
{
    QElapsedTimer timer;
    timer.start();
    verticalHeader()->setUpdatesEnabled(false);
    while (m_fittedRows < rowCount() && timer.elapsed() < fittingTime) {
        fitRow(m_fittedRows++);
    }
    verticalHeader()->setUpdatesEnabled(true);
}

// Equal messages have equal heights, and measuring text is slow.
void common_KestProcessOutputTableWidget::fitRow(int row)
{
    const QPair<QString, QString> texts(item(row, IdentifierColumn)->text(),
                                        item(row, DescriptionColumn)->text());
    const auto known = m_heights.constFind(texts);
    if (known != m_heights.cend()) {
        verticalHeader()->resizeSection(row, *known);
    } else {
        resizeRowToContents(row);
        m_heights.insert(texts, rowHeight(row));
    }
}

QVector<int> common_KestProcessOutputTableWidget::columnWidths() const
{
    QVector<int> widths;
    for (int column = 0; column < ColumnCount; ++column) {
        widths.append(columnWidth(column));
    }
    return widths;
}
