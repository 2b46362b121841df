// SPDX-License-Identifier: MIT
#include "BrokenEngines.h"
#include "MarkedRuns.h"
#include "StoppedRun.h"
#include "SuiteRun.h"

#include <TestRandom.h>
#include <Text.h>
#include <UnloadedClock.h>

#include <QDir>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include <csignal>
#include <memory>

// Refinements that are stopped or killed, meet a broken engine or a strange folder: they end in
// time, say why, leave no process and no file, and keep the earlier results.
class tst_amrkest_faults : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void signalStopsTheRun_data();
    void signalStopsTheRun();
    void stopOfTheFinalSolveLeavesNothing();
    void killLeavesNoProcess();
    void anyMomentIsGood();
    void closedOutputEndsTheRun();
    void failedIterationIsNamed_data();
    void failedIterationIsNamed();
    void failedFinalSolveKeepsTheResults();
    void secondRunIsRefused();
    void foreignFolderIsLeftAlone();
    void foreignFilesStay();
    void linksAreNotFollowed_data();
    void linksAreNotFollowed();
    void unwritableFolder();
    void resultThatCannotBeWritten();

private:
    void startRun(QProcess& run, const QProcessEnvironment& environment);
    SuiteResult run(const char* arguments = "m");
    void verifyOldResults();

    std::unique_ptr<MarkedRuns> m_runs;
};

namespace {

QString program()
{
    return suiteHome() + text("/bin/amrkest");
}

QByteArray model()
{
    return deckOf({text("CM A coarse dipole"), text("CM @adapt"), text("CE"),
                   text("GW 1 5 0 0 -0.25 0 0 0.25 0.00005"), text("GE 0"),
                   text("FR 0 31 0 0 250 3"), text("EX 0 1 3 0 1 0"), text("XQ"), text("EN")});
}

QStringList results()
{
    return words("m_amr.nec m.amr.csv m_amr.out m_amr.csv");
}

} // namespace

void tst_amrkest_faults::init()
{
    m_runs = std::make_unique<MarkedRuns>();
    QVERIFY(!writeFile(m_runs->folder(), text("m.nec"), model()).isEmpty());
    const QStringList names = results();
    for (const QString& name : names) {
        QVERIFY(!writeFile(m_runs->folder(), name, "old").isEmpty());
    }
}

void tst_amrkest_faults::startRun(QProcess& run, const QProcessEnvironment& environment)
{
    run.setWorkingDirectory(m_runs->folder());
    run.setProcessEnvironment(environment);
    run.start(program(), words("m --runkest-options -np 3"));
    QVERIFY(run.waitForStarted());
}

SuiteResult tst_amrkest_faults::run(const char* arguments)
{
    return runSuite(program(), words(arguments), m_runs->folder(), m_runs->environment());
}

void tst_amrkest_faults::verifyOldResults()
{
    const QStringList names = results();
    for (const QString& name : names) {
        QCOMPARE(readFile(m_runs->path(name)), QByteArray("old"));
    }
    QCOMPARE(readFile(m_runs->path(text("m.nec"))), model());
    QCOMPARE(m_runs->entries().size(), 5);
    QCOMPARE(m_runs->temporaryEntries(), QStringList());
}

void tst_amrkest_faults::signalStopsTheRun_data()
{
    QTest::addColumn<int>("signal");
    QTest::addColumn<QString>("part");
    QTest::addColumn<int>("processes");
    QTest::newRow("terminate") << SIGTERM << text("hang") << 3;
    QTest::newRow("interrupt") << SIGINT << text("hang") << 3;
    QTest::newRow("engine refuses") << SIGTERM << text("stubborn") << 4;
}

void tst_amrkest_faults::signalStopsTheRun()
{
    QFETCH(int, signal);
    QFETCH(QString, part);
    QFETCH(int, processes);
    QProcess run;
    startRun(run, m_runs->fakeEnvironment(part));
    QVERIFY(m_runs->waitForProcesses(processes));
    verifyStop(run, signal, 2000, *m_runs);
    verifyOldResults();
}

// amrkest, runkest, adaptkest and its engines, one inside the other.
void tst_amrkest_faults::stopOfTheFinalSolveLeavesNothing()
{
    QProcess run;
    startRun(run, m_runs->slowEnvironment(0.2));
    const QString state = m_runs->path(text("m.amrkest/final/m_amr.adaptkest/analysis_001.json"));
    QVERIFY(QTest::qWaitFor([&state] { return QFile::exists(state); }, 30000));
    QVERIFY(m_runs->waitForProcesses(4));
    const UnloadedClock clock;
    run.terminate();
    QVERIFY(run.waitForFinished());
    QVERIFY2(clock.elapsed() < 2000, qPrintable(QString::number(clock.elapsed())));
    QCOMPARE(run.exitCode(), 143);
    QCOMPARE(m_runs->processCount(), 0);
    verifyOldResults();
}

void tst_amrkest_faults::killLeavesNoProcess()
{
    QProcess run;
    startRun(run, m_runs->fakeEnvironment(text("hang")));
    QVERIFY(m_runs->waitForProcesses(3));
    run.kill();
    QVERIFY(run.waitForFinished());
    QVERIFY(m_runs->waitForEnd());
    const QStringList names = results();
    for (const QString& name : names) {
        QCOMPARE(readFile(m_runs->path(name)), QByteArray("old"));
    }
    // What it has left is no obstacle, and goes with the next run.
    QVERIFY(QFile::exists(m_runs->path(text("m.amrkest"))));
    QCOMPARE(this->run().exitCode, 0);
    QCOMPARE(m_runs->entries().size(), 5);
}

void tst_amrkest_faults::anyMomentIsGood()
{
    QRandomGenerator random = TestRandom::anew();
    const QProcessEnvironment slow = m_runs->slowEnvironment(0.02);
    const int times = qEnvironmentVariableIsSet("KEST_FULL_TESTS") ? 100 : 20;
    for (int i = 0; i < times; ++i) {
        QProcess run;
        startRun(run, slow);
        // A random moment is what this is about.
        QTest::qWait(static_cast<int>(random.bounded(700)));
        run.terminate();
        const UnloadedClock clock;
        QVERIFY(run.state() == QProcess::NotRunning || run.waitForFinished());
        QVERIFY(clock.elapsed() < 2500);
        QVERIFY(m_runs->processCount() == 0);
        const QString left =
            (m_runs->temporaryEntries() + m_runs->entries()).join(QLatin1Char(' '));
        if (run.exitStatus() == QProcess::NormalExit && run.exitCode() != 0) {
            QCOMPARE(left, text("m.amr.csv m.nec m_amr.csv m_amr.nec m_amr.out"));
        }
    }
}

void tst_amrkest_faults::closedOutputEndsTheRun()
{
    verifyEndWithItsReader(text("'%1' m").arg(program()), *m_runs);
    verifyOldResults();
}

void tst_amrkest_faults::failedIterationIsNamed_data()
{
    addBrokenEngines();
}

void tst_amrkest_faults::failedIterationIsNamed()
{
    QFETCH(QString, part);
    QFETCH(QString, reason);
    const SuiteResult result =
        runSuite(program(), {text("m")}, m_runs->folder(), m_runs->fakeEnvironment(part));
    QCOMPARE(result.exitCode, 1);
    const QStringList errors = result.bodies(text("error"));
    QCOMPARE(errors.size(), 1);
    QVERIFY2(errors.first().startsWith(
                 text("ERROR 2823: m.nec: iteration 1 failed, ERROR 2602; m.nec; at 295 MHz ")),
             qPrintable(errors.first()));
    QVERIFY2(errors.first().contains(reason), qPrintable(errors.first()));
    verifyOldResults();
}

// The engine refuses decks of several wires' worth of output, which only the final run has.
void tst_amrkest_faults::failedFinalSolveKeepsTheResults()
{
    const QTemporaryDir engines;
    const QString engine =
        writeFile(engines.path(), text("engine"),
                  "#!/bin/sh\ngrep -q 'FR 0 1 0 0 295 ' \"$2\" || exit 5\nexec nec2c \"$@\"\n");
    QVERIFY(QFile::setPermissions(engine, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    QProcessEnvironment environment = m_runs->environment();
    environment.insert(text("KEST_NEC2C"), engine);
    const SuiteResult result = runSuite(program(), {text("m")}, m_runs->folder(), environment);
    QCOMPARE(result.exitCode, 1);
    const QStringList errors = result.bodies(text("error"));
    QCOMPARE(errors.size(), 1);
    QVERIFY2(errors.first().startsWith(text("ERROR 2824: m.nec: the refined model cannot be "
                                            "solved, ERROR 2602; m_amr.nec; at ")),
             qPrintable(errors.first()));
    verifyOldResults();
}

void tst_amrkest_faults::secondRunIsRefused()
{
    QProcess first;
    startRun(first, m_runs->slowEnvironment(0.1));
    QVERIFY(m_runs->waitForProcesses(3));
    const SuiteResult second = run();
    QCOMPARE(second.exitCode, 1);
    QCOMPARE(
        second.bodies(text("error")),
        QStringList(text("ERROR 2722: m.nec: the folder 'm.amrkest' cannot be used, another "
                         "run of amrkest on this model, process %1 on %2, uses it")
                        .arg(QString::number(first.processId()), QSysInfo::machineHostName())));
    QVERIFY(first.waitForFinished());
    QCOMPARE(first.exitCode(), 0);
    QVERIFY(readFile(m_runs->path(text("m_amr.csv"))).startsWith("frequency_MHz,"));
}

void tst_amrkest_faults::foreignFolderIsLeftAlone()
{
    QVERIFY(QDir(m_runs->folder()).mkpath(text("m.amrkest/iteration_01")));
    QVERIFY(!writeFile(m_runs->folder(), text("m.amrkest/iteration_01/m.nec"), "mine").isEmpty());
    const SuiteResult result = run();
    QCOMPARE(result.exitCode, 1);
    QCOMPARE(result.bodies(text("error")),
             QStringList(text("ERROR 2722: m.nec: the folder 'm.amrkest' cannot be used, it was "
                              "not made by amrkest")));
    QCOMPARE(readFile(m_runs->path(text("m.amrkest/iteration_01/m.nec"))), QByteArray("mine"));
}

void tst_amrkest_faults::foreignFilesStay()
{
    QCOMPARE(run("m --keep-files").exitCode, 0);
    const QStringList mine = words("m.amrkest/notes m.amrkest/iteration_01/m.txt "
                                   "m.amrkest/iteration_01/other.nec m.amrkest/iteration_x/m.nec "
                                   "m.amrkest/final/m.nec");
    QVERIFY(QDir(m_runs->path(text("m.amrkest"))).mkdir(text("iteration_x")));
    for (const QString& name : mine) {
        QVERIFY(!writeFile(m_runs->folder(), name, "mine").isEmpty());
    }
    QVERIFY(!writeFile(m_runs->folder(), text("m.amrkest/iteration_02/m.out.AbCdEf"), "half")
                 .isEmpty());
    QCOMPARE(run().exitCode, 0);
    for (const QString& name : mine) {
        QCOMPARE(readFile(m_runs->path(name)), QByteArray("mine"));
    }
    QCOMPARE(QDir(m_runs->path(text("m.amrkest")))
                 .entryList(QDir::AllEntries | QDir::NoDotAndDotDot, QDir::Name),
             words("final iteration_01 iteration_x made_by_amrkest notes"));
    QCOMPARE(QDir(m_runs->path(text("m.amrkest/iteration_01")))
                 .entryList(QDir::AllEntries | QDir::NoDotAndDotDot, QDir::Name),
             words("m.txt other.nec"));
}

void tst_amrkest_faults::linksAreNotFollowed_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("isFolder");
    QTest::newRow("folder") << text("m.amrkest") << true;
    QTest::newRow("iteration") << text("m.amrkest/iteration_01") << true;
    QTest::newRow("deck") << text("m.amrkest/iteration_01/m.nec") << false;
    QTest::newRow("table of an iteration") << text("m.amrkest/iteration_01/m.csv") << false;
    QTest::newRow("refined model") << text("m_amr.nec") << false;
    QTest::newRow("result") << text("m_amr.csv") << false;
}

void tst_amrkest_faults::linksAreNotFollowed()
{
    QFETCH(QString, name);
    QFETCH(bool, isFolder);
    const QTemporaryDir elsewhere;
    const QString target = elsewhere.filePath(text("target"));
    QVERIFY(isFolder ? QDir().mkpath(target + text("/m.nec"))
                     : !writeFile(elsewhere.path(), text("target"), "mine").isEmpty());
    if (name.contains(QLatin1Char('/'))) {
        QCOMPARE(run("m --keep-files --skip-final-solve").exitCode, 0);
    }
    QFile::remove(m_runs->path(name));
    QDir(m_runs->path(name)).removeRecursively();
    QVERIFY(QFile::link(target, m_runs->path(name)));
    const SuiteResult result = run();
    QCOMPARE(result.exitCode, 1);
    QCOMPARE(result.bodies(text("error")).size(), 1);
    QVERIFY(QFileInfo(m_runs->path(name)).isSymLink());
    if (isFolder) {
        QCOMPARE(QDir(target).entryList(QDir::AllEntries | QDir::NoDotAndDotDot), words("m.nec"));
    } else {
        QCOMPARE(readFile(target), QByteArray("mine"));
    }
}

// Nobody, not even the superuser, can make an entry with so long a name.
void tst_amrkest_faults::unwritableFolder()
{
    const QString name(249, QLatin1Char('x'));
    QVERIFY(!writeFile(m_runs->folder(), name + text(".nec"), model()).isEmpty());
    const SuiteResult result = runSuite(program(), {name}, m_runs->folder(), m_runs->environment());
    QCOMPARE(result.exitCode, 1);
    QCOMPARE(result.bodies(text("error")).size(), 1);
    QVERIFY(result.hasText(text("cannot be used, it cannot be made, ")));
    QVERIFY(QFile::remove(m_runs->path(name + text(".nec"))));
    verifyOldResults();
}

void tst_amrkest_faults::resultThatCannotBeWritten()
{
    const QStringList names = results();
    for (const QString& name : names) {
        QVERIFY(QFile::remove(m_runs->path(name)));
        QVERIFY(QDir(m_runs->folder()).mkdir(name));
        const SuiteResult result = run();
        QCOMPARE(result.exitCode, 1);
        QVERIFY(result.hasText(text("ERROR 2701: m.nec: the result file '%1'").arg(name)));
        QVERIFY(!result.hasText(text("Iteration 1")));
        QVERIFY(QDir(m_runs->folder()).rmdir(name));
        QVERIFY(!writeFile(m_runs->folder(), name, "old").isEmpty());
        verifyOldResults();
    }
}

QTEST_GUILESS_MAIN(tst_amrkest_faults)
#include "tst_amrkest_faults.moc"
