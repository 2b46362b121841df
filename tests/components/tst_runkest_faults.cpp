// SPDX-License-Identifier: MIT
#include "BrokenEngines.h"
#include "MarkedRuns.h"
#include "StoppedRun.h"
#include "SuiteRun.h"

#include "ResultFiles.h"

#include <Text.h>
#include <UnloadedClock.h>

#include <QDir>
#include <QProcess>
#include <QRegularExpression>
#include <QtTest>

#include <csignal>
#include <memory>

#include <sys/resource.h>

// Runs that are stopped, meet a broken engine or cannot write: they end in time, say why, leave no
// process behind and keep the earlier results.
class tst_runkest_faults : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void signalStopsTheRun_data();
    void signalStopsTheRun();
    void killedRunTakesTheEnginesAlong();
    void nextRunClearsAfterAKilledOne();
    void closedOutputEndsTheRun_data();
    void closedOutputEndsTheRun();
    void brokenEngine_data();
    void brokenEngine();
    void talkativeEngineIsNoProblem();
    void missingEngine_data();
    void missingEngine();
    void resultThatCannotBeWritten_data();
    void resultThatCannotBeWritten();
    void fullDisk();
    void noResultIsReplacedUnlessAllAreWhole();
    void missingTemporaryFolder();

private:
    void startRun(QProcess& run, const QString& part);
    bool waitForEngines();
    void verifyOldResults(const QStringList& others = QStringList());

    std::unique_ptr<MarkedRuns> m_runs;
};

void tst_runkest_faults::init()
{
    m_runs = std::make_unique<MarkedRuns>();
    QVERIFY(!copyModel(text("dipole.nec"), m_runs->folder()).isEmpty());
    QVERIFY(!writeFile(m_runs->folder(), text("dipole.out"), "old output").isEmpty());
    QVERIFY(!writeFile(m_runs->folder(), text("dipole.csv"), "old table").isEmpty());
}

void tst_runkest_faults::startRun(QProcess& run, const QString& part)
{
    run.setWorkingDirectory(m_runs->folder());
    run.setProcessEnvironment(m_runs->fakeEnvironment(part));
    run.start(runkestProgram(), {text("dipole"), text("-np"), text("3")});
    QVERIFY(run.waitForStarted());
}

// Runkest and its three engines, a child each for stubborn ones.
bool tst_runkest_faults::waitForEngines()
{
    return m_runs->waitForProcesses(4);
}

// Besides the model and its results there are these files.
void tst_runkest_faults::verifyOldResults(const QStringList& others)
{
    QCOMPARE(readFile(m_runs->path(text("dipole.out"))), QByteArray("old output"));
    QCOMPARE(readFile(m_runs->path(text("dipole.csv"))), QByteArray("old table"));
    const QStringList files = QDir(m_runs->folder()).entryList(QDir::Files, QDir::Name);
    QCOMPARE(files,
             QStringList({text("dipole.csv"), text("dipole.nec"), text("dipole.out")}) + others);
    QCOMPARE(m_runs->temporaryEntries(), QStringList());
}

void tst_runkest_faults::signalStopsTheRun_data()
{
    QTest::addColumn<int>("signal");
    QTest::addColumn<QString>("part");
    QTest::newRow("terminate, engine hangs") << SIGTERM << text("hang");
    QTest::newRow("interrupt, engine hangs") << SIGINT << text("hang");
    QTest::newRow("terminal closed, engine hangs") << SIGHUP << text("hang");
    QTest::newRow("terminate, engine and its child refuse") << SIGTERM << text("stubborn");
}

void tst_runkest_faults::signalStopsTheRun()
{
    QFETCH(int, signal);
    QFETCH(QString, part);
    QProcess run;
    startRun(run, part);
    QVERIFY(waitForEngines());

    verifyStop(run, signal, 1000, *m_runs);
    verifyOldResults();
}

void tst_runkest_faults::killedRunTakesTheEnginesAlong()
{
    QProcess run;
    startRun(run, text("hang"));
    QVERIFY(waitForEngines());
    run.kill();
    QVERIFY(run.waitForFinished());
    const UnloadedClock clock;
    QVERIFY(m_runs->waitForEnd());
    QVERIFY(clock.elapsed() < 1000);
    QCOMPARE(readFile(m_runs->path(text("dipole.out"))), QByteArray("old output"));
}

// Nobody had time to remove its folder.
void tst_runkest_faults::nextRunClearsAfterAKilledOne()
{
    const auto folders = [this] {
        return m_runs->temporaryEntries().filter(QRegularExpression(text("^kest-sweep-")));
    };
    QProcess living;
    startRun(living, text("hang"));
    QVERIFY(waitForEngines());
    const QStringList ofLiving = folders();
    QCOMPARE(ofLiving.size(), 1);
    QProcess killed;
    startRun(killed, text("hang"));
    QTRY_COMPARE(folders().size(), 2);
    killed.kill();
    QVERIFY(killed.waitForFinished());
    QCOMPARE(folders().size(), 2);

    QProcess next;
    startRun(next, text("crash"));
    QVERIFY(next.waitForFinished());
    QCOMPARE(folders(), ofLiving);
    living.kill();
    QVERIFY(living.waitForFinished());
    const UnloadedClock clock;
    QVERIFY(m_runs->waitForEnd());
    QVERIFY(clock.elapsed() < 1000);
}

void tst_runkest_faults::closedOutputEndsTheRun_data()
{
    QTest::addColumn<QString>("part");
    QTest::newRow("while results come") << text("slow");
    QTest::newRow("while nothing comes") << text("hang");
}

// The reader takes one line and goes away.
void tst_runkest_faults::closedOutputEndsTheRun()
{
    QFETCH(QString, part);
    const QString command = QStringLiteral("('%1' dipole -np 3; echo $? > '%2/code') | head -n 1")
                                .arg(runkestProgram(), m_runs->folder());
    const UnloadedClock clock;
    const SuiteResult result = runSuite(text("/bin/sh"), {text("-c"), command}, m_runs->folder(),
                                        m_runs->fakeEnvironment(part));
    QVERIFY2(clock.elapsed() < 3000, qPrintable(QString::number(clock.elapsed())));
    QCOMPARE(result.errorOutput, QByteArray());
    QCOMPARE(readFile(m_runs->path(text("code"))), QByteArray("1\n"));
    QVERIFY(QFile::remove(m_runs->path(text("code"))));
    QCOMPARE(m_runs->processCount(), 0);
    // Whether a frequency was solved before the reader went away is a matter of time.
    QFile::remove(m_runs->path(text("dipole.partial")));
    verifyOldResults();
}

void tst_runkest_faults::brokenEngine_data()
{
    addBrokenEngines(text("the engine ended with code 3, GEOMETRY DATA CARD ERROR, "
                          "- *-total-percentage- *-100% and; colons"));
}

void tst_runkest_faults::brokenEngine()
{
    QFETCH(QString, part);
    QFETCH(QString, reason);
    const SuiteResult result = runSuite(runkestProgram(), {text("dipole")}, m_runs->folder(),
                                        m_runs->fakeEnvironment(part));
    QCOMPARE(result.exitCode, 1);
    QVERIFY(!result.isCrash);
    const QStringList errors = result.bodies(text("error"));
    QCOMPARE(errors.size(), 1);
    QVERIFY(errors.first().startsWith(text("ERROR 2602: dipole.nec: at 25")));
    QVERIFY2(errors.first().contains(reason), qPrintable(errors.first()));
    QVERIFY(!result.hasText(text("-*-total-percentage-*-100%")));
    QCOMPARE(m_runs->processCount(), 0);
    verifyOldResults();
}

void tst_runkest_faults::talkativeEngineIsNoProblem()
{
    QVERIFY(!writeFile(m_runs->folder(), text("m.nec"), deckOf(dipoleCards())).isEmpty());
    const SuiteResult result = runSuite(runkestProgram(), {text("m")}, m_runs->folder(),
                                        m_runs->fakeEnvironment(text("talkative")));
    QCOMPARE(result.exitCode, 0);
    QVERIFY(!result.hasText(text("xxxx")));
    QVERIFY(QFile::exists(m_runs->path(text("m.csv"))));
}

void tst_runkest_faults::missingEngine_data()
{
    QTest::addColumn<QString>("variable");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("reason");
    QTest::newRow("not in the path")
        << text("PATH") << text("/nowhere") << text("install the package nec2c");
    QTest::newRow("chosen one missing") << text("KEST_NEC2C") << text("/nowhere/engine")
                                        << text("'/nowhere/engine', named in KEST_NEC2C");
    QTest::newRow("a directory") << text("KEST_NEC2C") << text("/tmp")
                                 << text("is no program, correct or unset");
    QTest::newRow("not executable")
        << text("KEST_NEC2C") << text("/etc/passwd") << text("is no program");
}

void tst_runkest_faults::missingEngine()
{
    QFETCH(QString, variable);
    QFETCH(QString, value);
    QFETCH(QString, reason);
    const SuiteResult result = runSuite(runkestProgram(), {text("dipole")}, m_runs->folder(),
                                        environmentWith(variable, value));
    QCOMPARE(result.exitCode, 1);
    const QStringList errors = result.bodies(text("error"));
    QCOMPARE(errors.size(), 1);
    QVERIFY(errors.first().startsWith(text("ERROR 2601: dipole.nec: ")));
    QVERIFY2(errors.first().contains(reason), qPrintable(errors.first()));
    verifyOldResults();
}

void tst_runkest_faults::resultThatCannotBeWritten_data()
{
    QTest::addColumn<QString>("blocked");
    QTest::addColumn<QString>("other");
    QTest::newRow("output") << text("dipole.out") << text("dipole.csv");
    QTest::newRow("table") << text("dipole.csv") << text("dipole.out");
}

// A directory in the place of a result cannot be replaced, not even by the superuser.
void tst_runkest_faults::resultThatCannotBeWritten()
{
    QFETCH(QString, blocked);
    QFETCH(QString, other);
    QVERIFY(QFile::remove(m_runs->path(blocked)));
    QVERIFY(QDir(m_runs->folder()).mkdir(blocked));
    const QByteArray before = readFile(m_runs->path(other));
    QVERIFY(!before.isEmpty());
    const SuiteResult result = runSuite(runkestProgram(), {text("dipole")}, m_runs->folder());
    QCOMPARE(result.exitCode, 1);
    QVERIFY(result.hasText(
        QStringLiteral("ERROR 2701: dipole.nec: the result file '%1'").arg(blocked)));
    QVERIFY(!result.hasText(text("Solving")));
    QCOMPARE(readFile(m_runs->path(other)), before);
    QCOMPARE(QDir(m_runs->folder()).entryList(QDir::Files).size(), 2);
}

// A limit on the size of files stands in for a full disk: one frequency's output fits, all do not.
void tst_runkest_faults::fullDisk()
{
    const QString command = QStringLiteral("ulimit -f 64; exec '%1' dipole").arg(runkestProgram());
    QProcessEnvironment limited = m_runs->environment();
    const SuiteResult result =
        runSuite(text("/bin/sh"), {text("-c"), command}, m_runs->folder(), limited);
    QVERIFY(!result.isCrash);
    QCOMPARE(result.exitCode, 1);
    QVERIFY2(result.hasText(
                 text("ERROR 2701: dipole.nec: the result file 'dipole.out' cannot be written")),
             qPrintable(result.lines.join(QLatin1Char('\n'))));
    verifyOldResults({text("dipole.partial")});
}

// The second file's bytes do not fit. That is so even for a caller that commits all the same.
void tst_runkest_faults::noResultIsReplacedUnlessAllAreWhole()
{
    rlimit before = {};
    QCOMPARE(::getrlimit(RLIMIT_FSIZE, &before), 0);
    const rlimit tight = {4096, before.rlim_max};
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    suite::ResultFiles files;
    const bool isOpen =
        files.open({m_runs->path(text("dipole.out")), m_runs->path(text("dipole.csv"))});
    const bool isLimited = ::setrlimit(RLIMIT_FSIZE, &tight) == 0;
    const bool isFirstWritten = files.write(0, "new output");
    const bool isSecondWritten = files.write(1, QByteArray(8000, 'x'));
    const bool isCommitted = files.commit();
    QCOMPARE(::setrlimit(RLIMIT_FSIZE, &before), 0);
    std::signal(SIGXFSZ, handler);

    QVERIFY(isOpen && isLimited && isFirstWritten && !isSecondWritten);
    QVERIFY(!isCommitted);
    QVERIFY(files.error().contains(text("'dipole.csv'")));
    QCOMPARE(readFile(m_runs->path(text("dipole.out"))), QByteArray("old output"));
    QCOMPARE(readFile(m_runs->path(text("dipole.csv"))), QByteArray("old table"));
}

void tst_runkest_faults::missingTemporaryFolder()
{
    const SuiteResult result = runSuite(runkestProgram(), {text("dipole")}, m_runs->folder(),
                                        environmentWith(text("TMPDIR"), text("/dev/null")));
    QCOMPARE(result.exitCode, 1);
    QVERIFY(result.hasText(
        text("the temporary folder '/dev/null' cannot be used, it is not a folder")));
    verifyOldResults();
}

QTEST_GUILESS_MAIN(tst_runkest_faults)
#include "tst_runkest_faults.moc"
