// SPDX-License-Identifier: MIT
#pragma once

#include "MessageStore.h"

#include <QAbstractTableModel>
#include <QSet>
#include <QTimer>

/// The messages of a record, filtered by type and by a text that they contain. They are filtered in
/// slices, so that a large record does not block the window.
class MessageTableModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column { TimeColumn, TypeColumn, TextColumn, ColumnCount };

    /// Empty until setTypes(). The store must outlive the model.
    MessageTableModel(const MessageStore* store, QObject* parent);

    void setTypes(const QSet<MessageStore::Type>& types);

    /// Sets the text to search for, ignoring case. An empty text matches all messages.
    void setText(const QString& text);

    /// The complete text of a row.
    QString text(int row) const;

    /// Whether all messages have been filtered.
    bool isComplete() const { return m_scanned == m_store->size(); }

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

Q_SIGNALS:
    /// All messages have been filtered.
    void completed();

private:
    void restart();
    void scan();
    bool isWanted(const MessageStore::Message& message) const;

    const MessageStore* m_store;
    QSet<MessageStore::Type> m_types;
    QString m_text;
    QVector<int> m_shown; ///< indices in the store
    int m_scanned = 0;
    QTimer m_timer;
};
