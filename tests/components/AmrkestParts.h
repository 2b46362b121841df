// SPDX-License-Identifier: MIT
#pragma once

#include "SuiteRun.h"

#include <Text.h>

#include <QTemporaryDir>

#include <complex>

inline QString program()
{
    return suiteHome() + text("/bin/amrkest");
}

struct Iteration
{
    int segments = 0;
    std::complex<double> impedance;
    QByteArray change;
};

inline QVector<Iteration> readIterations(const QString& path)
{
    QVector<Iteration> result;
    QList<QByteArray> lines = readFile(path).split('\n');
    if (lines.takeFirst() != "iteration,segments,resistance_ohm,reactance_ohm,change") {
        return result;
    }
    lines.removeAll(QByteArray());
    for (const QByteArray& line : qAsConst(lines)) {
        const QList<QByteArray> cells = line.split(',');
        if (cells.size() == 5 && cells.at(0).toInt() == result.size() + 1) {
            result.append({cells.at(1).toInt(),
                           {cells.at(2).toDouble(), cells.at(3).toDouble()},
                           cells.at(4)});
        }
    }
    return result;
}

// A dipole of five thin segments.
inline QByteArray coarseDipole()
{
    return deckOf({text("CM A coarse dipole"), text("CE"),
                   text("GW 1 5 0 0 -0.25 0 0 0.25 0.00005"), text("GE 0"),
                   text("FR 0 5 0 0 280 5"), text("EX 0 1 3 0 1 0"), text("XQ"), text("EN")});
}

inline SuiteResult refine(const QTemporaryDir& folder, const char* options,
                          const QByteArray& deck = coarseDipole())
{
    writeFile(folder.path(), text("m.nec"), deck);
    return runSuite(program(), QStringList(text("m")) + words(options), folder.path());
}
