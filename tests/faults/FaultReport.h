// SPDX-License-Identifier: MIT
#pragma once

#include "FaultTable.h"
#include "TestRun.h"

#include <QMap>

/// What became of each fault, from the runs of the test programs.
class FaultReport
{
public:
    /// The runs by the names of their programs. Of each fault as many tests count as given; 0 means
    /// all.
    FaultReport(const QVector<Fault>& faults, const QMap<QString, TestRun>& runs, int testsOfFault);

    /// The table for a terminal, its totals, and what was lost or skipped and why.
    QString text() const;

    /// The table for a page, with what must be true.
    QString markdown() const;

    /// Whether each fault was tried and none was lost.
    bool isGood() const;

private:
    struct Row
    {
        Fault fault;
        int survived = 0;
        int lost = 0;
        int skipped = 0;
        QStringList losses;
        QStringList skips;

        int tried() const { return survived + lost; }
        bool isSurvived() const { return survived > 0 && lost == 0; }
    };

    static Row rowOf(const Fault& fault, const QMap<QString, TestRun>& runs, int testsOfFault);
    static void add(Row& row, const FaultTest& test, const TestRun& run);
    QString totals() const;

    QVector<Row> m_rows;
};
