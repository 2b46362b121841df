// SPDX-License-Identifier: MIT
#pragma once

#include "MarkedRuns.h"
#include "SuiteRun.h"

#include <Text.h>
#include <UnloadedClock.h>

#include <QProcess>
#include <QtTest>

#include <csignal>

// Sends the signal to a run that is at work, and verifies that it ends within the milliseconds,
// leaves no process behind, and says no more than that it was stopped.
inline void verifyStop(QProcess& run, int signal, int longest, const MarkedRuns& runs)
{
    const UnloadedClock clock;
    QVERIFY(run.processId() > 0);
    QCOMPARE(::kill(static_cast<pid_t>(run.processId()), signal), 0);
    QVERIFY(run.waitForFinished());
    QVERIFY2(clock.elapsed() < longest, qPrintable(QString::number(clock.elapsed())));
    QCOMPARE(run.exitStatus(), QProcess::NormalExit);
    QCOMPARE(run.exitCode(), 128 + signal);
    QCOMPARE(runs.processCount(), 0);
    const QByteArray output = run.readAllStandardOutput();
    QCOMPARE(output.count("-*-error-*-"), 0);
    QVERIFY(output.contains("-*-notice-*-NOTE 301: stopped by SIG"));
    QVERIFY(!output.contains("-*-total-percentage-*-100%"));
}

// A reader that ends after the first line ends a run, too: its exit code is 1, and it writes no
// errors and leaves nothing behind.
inline void verifyEndWithItsReader(const QString& command, const MarkedRuns& runs)
{
    const QString code = runs.path(text("code"));
    const QString line = text("(%1; echo $? > '%2') | head -n 1").arg(command, code);
    const SuiteResult result = runSuite(text("/bin/sh"), {text("-c"), line}, runs.folder(),
                                        runs.fakeEnvironment(text("hang")));
    QCOMPARE(result.errorOutput, QByteArray());
    QCOMPARE(readFile(code), QByteArray("1\n"));
    QVERIFY(QFile::remove(code));
    QVERIFY(runs.waitForEnd());
}
