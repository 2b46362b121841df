// SPDX-License-Identifier: MIT
#pragma once

#include "FaultTable.h"
#include "TestLog.h"
#include "TestPrograms.h"

/// What running some functions of a test program brought.
struct TestRun
{
    QVector<TestCase> cases;
    QString failure; ///< of the program as a whole, as when it leaves processes behind

    /// What became of a function, or of its row.
    QVector<TestCase> casesOf(const FaultTest& test) const;
};

/// Runs functions of a program, in one process as long as that does not crash or hang: whichever
/// function did so is lost, and another process runs those behind it. Repeats what can be repeated
/// as often as for a release, or not.
TestRun runTests(const TestProgram& program, const QVector<FaultTest>& tests, bool isFull);
