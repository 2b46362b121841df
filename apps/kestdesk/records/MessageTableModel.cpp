// SPDX-License-Identifier: MIT
#include "MessageTableModel.h"

#include "RunTexts.h"
#include "ToolTip.h"

#include <VisibleText.h>

#include <common_IIconUtility.h>
#include <common_ServiceOf.h>

#include <QIcon>

#include <algorithm>
#include <iterator>

namespace {

using Type = MessageStore::Type;

constexpr int sliceSize = 5000;       // messages
constexpr int longestToolTip = 10000; // characters

// clang-format off
const struct { Type type; const char* text; const char* icon; } typeRows[] = {
    {common_IProcessMessage::Error,   QT_TRANSLATE_NOOP("MessageTableModel", "Error"),   "fault"},
    {common_IProcessMessage::Warning, QT_TRANSLATE_NOOP("MessageTableModel", "Warning"), "warning"},
    {common_IProcessMessage::Notice,  QT_TRANSLATE_NOOP("MessageTableModel", "Notice"),  "info"},
    {common_IProcessMessage::File,    QT_TRANSLATE_NOOP("MessageTableModel", "File"),    "result"},
};
// clang-format on

QVariant iconOf(Type type)
{
    const auto* const row = std::find_if(std::begin(typeRows), std::end(typeRows),
                                         [type](const auto& each) { return each.type == type; });
    return row == std::end(typeRows)
               ? QVariant()
               : GET_SERVICE(common_IIconUtility)->getIcon(QLatin1String(row->icon));
}

QString wordOf(Type type)
{
    const auto* const row = std::find_if(std::begin(typeRows), std::end(typeRows),
                                         [type](const auto& each) { return each.type == type; });
    return row == std::end(typeRows) ? QString() : MessageTableModel::tr(row->text);
}

// Leading blanks belong to the tables that components print.
QString withoutLineEnd(QString text)
{
    while (text.endsWith(QLatin1Char('\n')) || text.endsWith(QLatin1Char('\r'))) {
        text.chop(1);
    }
    return text;
}

} // namespace

MessageTableModel::MessageTableModel(const MessageStore* store, QObject* parent)
    : QAbstractTableModel(parent), m_store(store)
{
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, &MessageTableModel::scan);
    connect(store, &MessageStore::grown, &m_timer, qOverload<>(&QTimer::start));
}

void MessageTableModel::setTypes(const QSet<Type>& types)
{
    m_types = types;
    restart();
}

void MessageTableModel::setText(const QString& text)
{
    m_text = text;
    restart();
}

void MessageTableModel::restart()
{
    beginResetModel();
    m_shown.clear();
    m_scanned = 0;
    endResetModel();
    scan();
}

void MessageTableModel::scan()
{
    const int end = std::min(m_store->size(), m_scanned + sliceSize);
    QVector<int> found;
    for (; m_scanned < end; ++m_scanned) {
        if (isWanted(m_store->at(m_scanned))) {
            found.append(m_scanned);
        }
    }
    if (!found.isEmpty()) {
        beginInsertRows(QModelIndex(), m_shown.size(), m_shown.size() + found.size() - 1);
        m_shown += found;
        endInsertRows();
    }
    if (isComplete()) {
        Q_EMIT completed();
    } else {
        m_timer.start();
    }
}

bool MessageTableModel::isWanted(const MessageStore::Message& message) const
{
    return m_types.contains(message.type) &&
           (m_text.isEmpty() ||
            QString::fromUtf8(message.text).contains(m_text, Qt::CaseInsensitive));
}

QString MessageTableModel::text(int row) const
{
    return row >= 0 && row < m_shown.size() ? m_store->text(m_shown.at(row)) : QString();
}

int MessageTableModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_shown.size();
}

int MessageTableModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant MessageTableModel::data(const QModelIndex& index, int role) const
{
    if (index.row() >= m_shown.size()) {
        return QVariant();
    }
    const MessageStore::Message& message = m_store->at(m_shown.at(index.row()));
    const int column = index.column();
    if (role == Qt::DisplayRole) {
        return column == TimeColumn   ? RunTexts::shortClockTime(message.time)
               : column == TypeColumn ? wordOf(message.type)
                                      : suite::visibleText(withoutLineEnd(text(index.row())));
    }
    if (role == Qt::DecorationRole && column == TypeColumn) {
        return iconOf(message.type);
    }
    if (role == Qt::ToolTipRole && column == TextColumn) {
        return ToolTip::of(text(index.row()).left(longestToolTip));
    }
    return role == Qt::TextAlignmentRole && column == TimeColumn
               ? QVariant(int(Qt::AlignVCenter | Qt::AlignRight))
               : QVariant();
}

QVariant MessageTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    constexpr const char* headers[ColumnCount] = {QT_TR_NOOP("Time"), QT_TR_NOOP("Kind"),
                                                  QT_TR_NOOP("Text")};
    return orientation == Qt::Horizontal && role == Qt::DisplayRole && section < ColumnCount
               ? QVariant(tr(headers[section]))
               : QVariant();
}
