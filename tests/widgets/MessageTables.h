// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>
#include <QHeaderView>
#include <QStringList>
#include <QTableWidget>

#include <initializer_list>

using Texts = std::initializer_list<const char*>;

inline QStringList strings(Texts texts)
{
    QStringList result;
    for (const char* const text : texts) {
        result.append(QString::fromUtf8(text));
    }
    return result;
}

inline QFont tableFont()
{
    return QFont(QStringLiteral("Courier"), 9, 2, false);
}

/// Counts by looking at every item and fits every row, for every message.
class SlowTable : public QTableWidget
{
public:
    SlowTable()
    {
        setColumnCount(3);
        setWordWrap(true);
        verticalHeader()->setVisible(false);
        setFont(tableFont());
    }

    int add(const QString& message)
    {
        const int colon = message.indexOf(QLatin1Char(':'));
        if (colon < 1) {
            return rowCount();
        }
        QString identifier = message.split(QLatin1Char(' ')).first();
        identifier.remove(QLatin1Char(':'));
        const QString description = message.split(QLatin1Char(':')).last().simplified();
        const QList<QTableWidgetItem*> equal = findItems(description, Qt::MatchFixedString);
        for (const QTableWidgetItem* found : equal) {
            QTableWidgetItem* const count = item(found->row(), 1);
            count->setText(QStringLiteral("%1").arg(count->text().toInt() + 1));
        }
        const int row = rowCount();
        insertRow(row);
        setItem(row, 0, new QTableWidgetItem(identifier));
        setItem(row, 1, new QTableWidgetItem(QStringLiteral("1")));
        setItem(row, 2, new QTableWidgetItem(description));
        resizeRowsToContents();
        return row + 1;
    }
};

inline QStringList cells(const QTableWidget* table)
{
    QStringList texts;
    for (int row = 0; row < table->rowCount(); ++row) {
        for (int column = 0; column < table->columnCount(); ++column) {
            texts.append(table->item(row, column)->text());
        }
    }
    return texts;
}

inline QStringList counts(const QTableWidget* table)
{
    QStringList texts;
    for (int row = 0; row < table->rowCount(); ++row) {
        texts.append(table->item(row, 1)->text());
    }
    return texts;
}
