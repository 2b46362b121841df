// SPDX-License-Identifier: MIT
#pragma once

#include "SuiteRun.h"

#include <Text.h>

struct Row
{
    double frequency = 0;
    double resistance = 0;
    double reactance = 0;
    double ratio = 0;
};

inline QVector<Row> readTable(const QString& path)
{
    QVector<Row> rows;
    QList<QByteArray> lines = readFile(path).split('\n');
    lines.removeAll(QByteArray());
    lines.removeFirst(); // the heading
    for (const QByteArray& line : qAsConst(lines)) {
        const QList<QByteArray> cells = line.split(',');
        rows.append({cells.value(0).toDouble(), cells.value(1).toDouble(),
                     cells.value(2).toDouble(), cells.value(3).toDouble()});
    }
    return rows;
}

inline SuiteResult runModel(const QString& model, const QString& folder,
                            const QStringList& options = QStringList())
{
    return runSuite(runkestProgram(), QStringList(model) + options, folder);
}

inline QByteArray dipoleWith(int line, const QString& card)
{
    QStringList cards = dipoleCards();
    cards[line - 1] = card;
    return deckOf(cards);
}
