// SPDX-License-Identifier: MIT
#pragma once

#include "MessageStore.h"

#include <QVector>
#include <QWidget>

class MessageTableModel;
class QHBoxLayout;
class QLabel;
class QLineEdit;
class QTableView;
class QToolButton;

/// The messages of a record as a table, with a filter by kind and text, and with a search.
class MessageView : public QWidget
{
    Q_OBJECT

public:
    /// A kind of messages that the user can show and hide.
    struct Kind
    {
        MessageStore::Type type;
        const char* text; ///< on its button
        bool isShown;     ///< at first
    };

    /// Without kinds the view shows the lines of the output. The store must outlive the view.
    MessageView(const MessageStore* store, const QVector<Kind>& kinds, QWidget* parent);

    /// The text of the current message; empty if there is none.
    QString currentText() const;

    MessageTableModel* model() const { return m_model; }

    /// Shows only messages that contain the text.
    void setFilter(const QString& text);

Q_SIGNALS:
    /// The user has double-clicked the current message or pressed Enter.
    void activated();

    void currentChanged();

private:
    void makeBar(const QVector<Kind>& kinds);
    void makeKinds(const QVector<Kind>& kinds, QHBoxLayout* layout);
    void makeTable(bool isOutput);
    void makeSearch(QHBoxLayout* layout);
    void makeKeys();
    void updateTypes();
    void updateCounts();
    void find(bool isForward);
    void continueSearch();
    void copy();

    /// The state of a search in progress.
    struct Search
    {
        QString text;
        int row = 0;  ///< next row to examine
        int left = 0; ///< number of rows left
        int step = 1;
    };

    const MessageStore* m_store;
    QVector<Kind> m_kinds;
    MessageTableModel* m_model;
    QTableView* m_table;
    QLineEdit* m_filter = nullptr;
    QLineEdit* m_find = nullptr;
    QLabel* m_found = nullptr;
    QVector<QToolButton*> m_buttons; ///< by kind
    Search m_search;
    QTimer m_searchTimer;
};
