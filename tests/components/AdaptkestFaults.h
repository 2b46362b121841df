// SPDX-License-Identifier: MIT
#pragma once

#include "AdaptkestParts.h"
#include "MarkedRuns.h"
#include "SuiteRun.h"

#include <QProcess>
#include <QtTest>

#include <memory>

inline QString analysis(int number)
{
    return text("m.adaptkest/analysis_%1.json").arg(number, 3, 10, QLatin1Char('0'));
}

/// Runs of adaptkest beside the results of an earlier run, which must stay.
class AdaptkestFaults
{
protected:
    void startRun(QProcess& run, const QString& program, const QProcessEnvironment& environment);
    SuiteResult run(const char* arguments);
    void verifyOldResults();

    std::unique_ptr<MarkedRuns> m_runs;
};

inline void AdaptkestFaults::startRun(QProcess& run, const QString& program,
                                      const QProcessEnvironment& environment)
{
    run.setWorkingDirectory(m_runs->folder());
    run.setProcessEnvironment(environment);
    run.start(program, {text("m"), text("-np"), text("3")});
    QVERIFY(run.waitForStarted());
}

inline SuiteResult AdaptkestFaults::run(const char* arguments)
{
    return runSuite(program(), words(arguments), m_runs->folder(), m_runs->environment());
}

inline void AdaptkestFaults::verifyOldResults()
{
    QCOMPARE(readFile(m_runs->path(text("m.out"))), QByteArray("old output"));
    QCOMPARE(readFile(m_runs->path(text("m.csv"))), QByteArray("old table"));
    QCOMPARE(readFile(m_runs->path(text("m.nec"))), adaptiveDipole());
    QStringList entries = m_runs->entries();
    entries.removeAll(text("m.adaptkest"));
    QCOMPARE(entries, words("m.csv m.nec m.out"));
    QCOMPARE(m_runs->temporaryEntries(), QStringList());
}
