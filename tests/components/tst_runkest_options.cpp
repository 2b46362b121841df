// SPDX-License-Identifier: MIT
#include "OptionChecks.h"
#include "RunkestParts.h"
#include "SuiteRun.h"

#include <SystemSkips.h>

#include <QDir>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

// Runs that go well: their options, their paths, and what they leave behind.
class tst_runkest_options : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void checkOnlySolvesNothing();
    void mistakesStopTheRun();
    void ignoredErrorsReachTheEngine();
    void variablesAreWritten();
    void anyPathWorks_data();
    void anyPathWorks();
    void localeDoesNotMatter();
    void noTemporaryFilesStay();
    void twoRunsAtOnce();
    void frontEndCommandLine();
};

void tst_runkest_options::checkOnlySolvesNothing()
{
    const QTemporaryDir folder;
    QVERIFY(!copyModel(text("dipole.nec"), folder.path()).isEmpty());
    const SuiteResult result =
        runSuite(runkestProgram(), {text("dipole"), text("--kest-options"), text("--check-only")},
                 folder.path(), fakeEngine(text("fail")));
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(result.lines.last(), text("-*-total-percentage-*-100%"));
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files), QStringList(text("dipole.nec")));
}

void tst_runkest_options::mistakesStopTheRun()
{
    const QTemporaryDir folder;
    QVERIFY(!copyModel(text("mistakes.nec"), folder.path()).isEmpty());
    const SuiteResult result =
        runSuite(runkestProgram(), {text("mistakes")}, folder.path(), fakeEngine(text("fail")));
    QCOMPARE(result.exitCode, 1);
    QCOMPARE(result.bodies(text("error")).size(), 8);
    QVERIFY(!result.hasText(text("ERROR 26")));
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files), QStringList(text("mistakes.nec")));
}

void tst_runkest_options::ignoredErrorsReachTheEngine()
{
    const QTemporaryDir folder;
    QVERIFY(
        !writeFile(folder.path(), text("m.nec"), dipoleWith(6, text("EX 0 2 11 0 1 0"))).isEmpty());
    const SuiteResult result =
        runModel(text("m"), folder.path(),
                 {text("-np"), text("1"), text("--prekest-options"), text("--ignore-errors")});
    QCOMPARE(result.exitCode, 1);
    const QStringList errors = result.bodies(text("error"));
    QCOMPARE(errors.size(), 2);
    QVERIFY(errors.at(0).startsWith(text("ERROR 2406: ")));
    QVERIFY(errors.at(0).endsWith(text(" (m.nec, line 6)")));
    QVERIFY(
        errors.at(1).startsWith(text("ERROR 2602: m.nec: at 290 MHz the engine ended with code")));
    QVERIFY2(errors.at(1).contains(text("NO SEGMENT HAS AN ITAG OF 2")), qPrintable(errors.at(1)));
}

void tst_runkest_options::variablesAreWritten()
{
    const QTemporaryDir folder;
    QVERIFY(!copyModel(text("dipole.nec"), folder.path()).isEmpty());
    const SuiteResult result = runModel(
        text("dipole"), folder.path(),
        {text("--prekest-options"), text("--print-variables"), text("--print-variables-to-out")});
    QCOMPARE(result.exitCode, 0);
    QVERIFY(result.bodies(text("variable")).contains(text("frequencies = 51")));
    QCOMPARE(result.bodies(text("file")).size(), 3);
    QVERIFY(QFile::exists(folder.filePath(text("dipole.pre"))));
}

void tst_runkest_options::anyPathWorks_data()
{
    addModelPaths();
}

void tst_runkest_options::anyPathWorks()
{
    QFETCH(QString, path);
    const QTemporaryDir folder;
    const QString full = writeModelAt(folder.path(), path, deckOf(dipoleCards()));
    QVERIFY(!full.isEmpty());
    QProcessEnvironment environment = environmentWith(text("LC_ALL"), text("C"));
    const SuiteResult result = runSuite(runkestProgram(), {full}, QDir::tempPath(), environment);
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(readTable(folder.filePath(path + text(".csv"))).size(), 3);
    QVERIFY(QFile::exists(folder.filePath(path + text(".out"))));
}

void tst_runkest_options::localeDoesNotMatter()
{
    const QTemporaryDir folder;
    QVERIFY(!writeFile(folder.path(), text("m.nec"), deckOf(dipoleCards())).isEmpty());
    QCOMPARE(runModel(text("m"), folder.path()).exitCode, 0);
    const QByteArray table = readFile(folder.filePath(text("m.csv")));
    QVERIFY(table.contains("290,76.147,16.925,"));
    const SuiteResult german = runSuite(runkestProgram(), {text("m")}, folder.path(),
                                        environmentWith(text("LC_ALL"), text("de_DE.UTF-8")));
    QCOMPARE(german.exitCode, 0);
    QCOMPARE(readFile(folder.filePath(text("m.csv"))), table);
}

void tst_runkest_options::noTemporaryFilesStay()
{
    const QTemporaryDir folder;
    const QTemporaryDir temporary;
    QVERIFY(!copyModel(text("dipole.nec"), folder.path()).isEmpty());
    const SuiteResult result = runSuite(runkestProgram(), {text("dipole")}, folder.path(),
                                        environmentWith(text("TMPDIR"), temporary.path()));
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(QDir(temporary.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
             QStringList());
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files, QDir::Name),
             QStringList({text("dipole.csv"), text("dipole.nec"), text("dipole.out")}));
}

void tst_runkest_options::twoRunsAtOnce()
{
    const QTemporaryDir folder;
    QVERIFY(!copyModel(text("dipole.nec"), folder.path()).isEmpty());
    QCOMPARE(runModel(text("dipole"), folder.path()).exitCode, 0);
    const QByteArray output = readFile(folder.filePath(text("dipole.out")));
    const QByteArray table = readFile(folder.filePath(text("dipole.csv")));
    QVERIFY(!output.isEmpty());
    QProcess runs[2];
    for (QProcess& run : runs) {
        run.setWorkingDirectory(folder.path());
        run.start(runkestProgram(), {text("dipole")});
    }
    for (QProcess& run : runs) {
        QVERIFY(run.waitForFinished());
        QCOMPARE(run.exitCode(), 0);
    }
    QVERIFY(output == readFile(folder.filePath(text("dipole.out"))));
    QCOMPARE(readFile(folder.filePath(text("dipole.csv"))), table);
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files).size(), 3);
}

void tst_runkest_options::frontEndCommandLine()
{
    SKIP_WITHOUT_PARALLEL_RUNS();
    const QTemporaryDir folder;
    QVERIFY(!copyModel(text("dipole.nec"), folder.path()).isEmpty());
    const QString machines = writeFile(folder.path(), text("gui_tmp_machfile_1"), "localhost:2\n");
    const QStringList options = {
        text("--run-from-gui"),
        text("-np"),
        text("2"),
        text("--machines-file"),
        machines,
        text("--priority"),
        text("1"),
        text("--parallel-authenticate"),
        text("sspi"),
        text("--use-gpu"),
        text("0"),
        QString(),
        text("--kest-options"),
        text("--mtl-circuit-export"),
        text("--prekest-options"),
        text("--print-variables"),
        text("--adaptkest-options"),
        text("--keep-files"),
    };
    const SuiteResult result = runModel(text("dipole.nec"), folder.path(), options);
    QCOMPARE(result.bodies(text("error")), QStringList());
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(readTable(folder.filePath(text("dipole.csv"))).size(), 51);
}

QTEST_GUILESS_MAIN(tst_runkest_options)
#include "tst_runkest_options.moc"
