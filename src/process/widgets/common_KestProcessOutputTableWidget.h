// SPDX-License-Identifier: MIT
#pragma once

#include "common_EndOfTurn.h"
#include "common_MessageOccurrences.h"

#include <QFont>
#include <QHash>
#include <QPair>
#include <QString>
#include <QTableWidget>
#include <QVector>

/// The numbered notices, or warnings, of a child process, with their counts.
///
/// Every message is a row. The texts of the cells are always up to date; the heights of new rows
/// and the drawing of counts are updated at the end of the event loop's turn.
class common_KestProcessOutputTableWidget : public QTableWidget
{
    Q_OBJECT

public:
    /// The name is the kind of the listed messages: "Notice" or "Warning".
    common_KestProcessOutputTableWidget(const QString& name, QWidget* parent);
    ~common_KestProcessOutputTableWidget() override;

    /// Adds "IDENTIFIER ...: DESCRIPTION" and raises the counts of equal messages before it. A
    /// message that has no colon, or begins with one, is not added. Returns the number of rows.
    int add(const QString& message);

public Q_SLOTS:
    /// Copies the selected rows to the clipboard, one line each.
    void copy();

    /// Emits cellDoubleClicked() for the current cell.
    void findInOutput();

private:
    void addActionFor(const QString& text, const QString& shortcut, const char* slot);
    void addRow(const QString& identifier, const QString& description);
    void onTurnEnded();
    void fitRows();
    void fitRow(int row);
    QVector<int> columnWidths() const;

    QString m_name;

    common_MessageOccurrences m_occurrences;
    common_EndOfTurn m_endOfTurn;
    int m_fittedRows = 0;
    QVector<int> m_fittedWidths; ///< of the columns, when the rows were fitted
    QFont m_fittedFont;
    QHash<QPair<QString, QString>, int> m_heights; ///< of rows by identifier and description
};
