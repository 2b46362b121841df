// SPDX-License-Identifier: MIT
#include "AdaptkestFaults.h"
#include "BrokenEngines.h"
#include "MarkedRuns.h"
#include "StoppedRun.h"
#include "SuiteRun.h"

#include <TestRandom.h>
#include <UnloadedClock.h>

#include <QDir>
#include <QProcess>
#include <QtTest>

#include <csignal>
#include <memory>

// Adaptive runs that are stopped or killed, or meet a broken engine: they end in time, say why,
// leave no process, and go on to the same bytes.
class tst_adaptkest_faults : public QObject, protected AdaptkestFaults
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void signalStopsTheRun_data();
    void signalStopsTheRun();
    void killLeavesNoProcess_data();
    void killLeavesNoProcess();
    void stoppedRunGoesOnToTheSameBytes_data();
    void stoppedRunGoesOnToTheSameBytes();
    void anyMomentIsGood();
    void closedOutputEndsTheRun();
    void brokenEngine_data();
    void brokenEngine();
    void missingEngine();
    void adaptkestThatIsKilledIsToldOf();
    void adaptkestThatIsMissingIsToldOf();

private:
    bool waitForAnalysis(int number);
};

void tst_adaptkest_faults::init()
{
    m_runs = std::make_unique<MarkedRuns>();
    QVERIFY(!writeFile(m_runs->folder(), text("m.nec"), adaptiveDipole()).isEmpty());
    QVERIFY(!writeFile(m_runs->folder(), text("m.out"), "old output").isEmpty());
    QVERIFY(!writeFile(m_runs->folder(), text("m.csv"), "old table").isEmpty());
}

bool tst_adaptkest_faults::waitForAnalysis(int number)
{
    return QTest::qWaitFor([=] { return QFile::exists(m_runs->path(analysis(number))); }, 30000);
}

void tst_adaptkest_faults::signalStopsTheRun_data()
{
    QTest::addColumn<QString>("program");
    QTest::addColumn<int>("signal");
    QTest::addColumn<QString>("part");
    QTest::addColumn<int>("processes");
    QTest::newRow("terminate") << program() << SIGTERM << text("hang") << 4;
    QTest::newRow("interrupt") << program() << SIGINT << text("hang") << 4;
    QTest::newRow("terminate, engine refuses") << program() << SIGTERM << text("stubborn") << 7;
    QTest::newRow("terminate runkest") << runkestProgram() << SIGTERM << text("hang") << 5;
    QTest::newRow("interrupt runkest") << runkestProgram() << SIGINT << text("hang") << 5;
    QTest::newRow("terminate runkest, engine refuses")
        << runkestProgram() << SIGTERM << text("stubborn") << 8;
}

void tst_adaptkest_faults::signalStopsTheRun()
{
    QFETCH(QString, program);
    QFETCH(int, signal);
    QFETCH(QString, part);
    QFETCH(int, processes);
    QProcess run;
    startRun(run, program, m_runs->fakeEnvironment(part));
    QVERIFY(m_runs->waitForProcesses(processes));

    verifyStop(run, signal, 2000, *m_runs);
    verifyOldResults();
    QVERIFY(!QFile::exists(m_runs->path(text("m.adaptkest"))));
}

void tst_adaptkest_faults::killLeavesNoProcess_data()
{
    QTest::addColumn<QString>("program");
    QTest::addColumn<int>("processes");
    QTest::newRow("adaptkest") << program() << 4;
    QTest::newRow("runkest") << runkestProgram() << 5;
}

void tst_adaptkest_faults::killLeavesNoProcess()
{
    QFETCH(QString, program);
    QFETCH(int, processes);
    QProcess run;
    startRun(run, program, m_runs->fakeEnvironment(text("hang")));
    QVERIFY(m_runs->waitForProcesses(processes));
    run.kill();
    QVERIFY(run.waitForFinished());
    QVERIFY(m_runs->waitForEnd());
    QCOMPARE(readFile(m_runs->path(text("m.out"))), QByteArray("old output"));
    // The folder that it has left is no obstacle.
    QCOMPARE(this->run("m").exitCode, 0);
    QVERIFY(!QFile::exists(m_runs->path(text("m.adaptkest"))));
}

void tst_adaptkest_faults::stoppedRunGoesOnToTheSameBytes_data()
{
    QTest::addColumn<QString>("program");
    QTest::addColumn<int>("signal");
    QTest::addColumn<QByteArray>("command");
    const QByteArray restart = "m --restart 2";
    const QByteArray resume = "m --resume";
    QTest::newRow("adaptkest stopped") << program() << SIGTERM << restart;
    QTest::newRow("adaptkest killed") << program() << SIGKILL << restart;
    QTest::newRow("runkest stopped") << runkestProgram() << SIGTERM << restart;
    QTest::newRow("runkest killed") << runkestProgram() << SIGKILL << restart;
    QTest::newRow("adaptkest stopped and resumed") << program() << SIGTERM << resume;
    QTest::newRow("runkest killed and resumed") << runkestProgram() << SIGKILL << resume;
}

void tst_adaptkest_faults::stoppedRunGoesOnToTheSameBytes()
{
    QFETCH(QString, program);
    QFETCH(int, signal);
    QFETCH(QByteArray, command);
    QProcess run;
    startRun(run, program, m_runs->slowEnvironment(0.1));
    QVERIFY(waitForAnalysis(2));
    QVERIFY(run.processId() > 0);
    QCOMPARE(::kill(static_cast<pid_t>(run.processId()), signal), 0);
    QVERIFY(run.waitForFinished());
    QVERIFY(m_runs->waitForEnd());
    QCOMPARE(run.readAllStandardOutput().count("are kept in 'm.adaptkest', --resume continues"),
             signal == SIGTERM ? 1 : 0);
    QCOMPARE(readFile(m_runs->path(text("m.out"))), QByteArray("old output"));
    QVERIFY(QFile::exists(m_runs->path(analysis(1))));

    const SuiteResult rest = this->run(command.constData());
    QCOMPARE(rest.bodies(text("error")), QStringList());
    QCOMPARE(rest.exitCode, 0);
    QVERIFY(!rest.hasText(text("Analysis 2,")));
    QVERIFY(!QFile::exists(m_runs->path(text("m.adaptkest"))));
    const QByteArray output = readFile(m_runs->path(text("m.out")));
    const QByteArray table = readFile(m_runs->path(text("m.csv")));
    QCOMPARE(this->run("m").exitCode, 0);
    QVERIFY(output == readFile(m_runs->path(text("m.out"))));
    QCOMPARE(table, readFile(m_runs->path(text("m.csv"))));
}

// Stopped at random moments, over and over; what was whole by then is taken over each time.
void tst_adaptkest_faults::anyMomentIsGood()
{
    QRandomGenerator random = TestRandom::anew();
    const QProcessEnvironment slow = m_runs->slowEnvironment(0.02);
    const int times = qEnvironmentVariableIsSet("KEST_FULL_TESTS") ? 100 : 20;
    for (int i = 0; i < times; ++i) {
        QProcess run;
        startRun(run, random.bounded(2) == 0 ? program() : runkestProgram(), slow);
        // A random moment is what this is about.
        QTest::qWait(static_cast<int>(random.bounded(400)));
        const bool isKill = random.bounded(4) == 0;
        if (isKill) {
            run.kill();
        } else {
            run.terminate();
        }
        const UnloadedClock clock;
        QVERIFY(run.state() == QProcess::NotRunning || run.waitForFinished());
        QVERIFY(clock.elapsed() < 2500);
        QVERIFY(isKill ? m_runs->waitForEnd() : m_runs->processCount() == 0);
        if (!isKill) {
            const QStringList left = m_runs->temporaryEntries();
            QVERIFY2(left.isEmpty(), qPrintable(left.join(QLatin1Char(' '))));
        }
        const QStringList leftByKill = m_runs->temporaryEntries();
        for (const QString& name : leftByKill) {
            QDir(QProcessEnvironment(slow).value(text("TMPDIR")) + QLatin1Char('/') + name)
                .removeRecursively();
        }
    }
    int last = 0;
    while (QFile::exists(m_runs->path(analysis(last + 1)))) {
        ++last;
    }
    const QString arguments = last > 0 ? text("m --restart %1").arg(last) : text("m");
    QCOMPARE(run(qPrintable(arguments)).exitCode, 0);
    const QByteArray table = readFile(m_runs->path(text("m.csv")));
    QCOMPARE(run("m").exitCode, 0);
    QCOMPARE(readFile(m_runs->path(text("m.csv"))), table);
}

void tst_adaptkest_faults::closedOutputEndsTheRun()
{
    for (const QString& program : {program(), runkestProgram()}) {
        verifyEndWithItsReader(text("'%1' m -np 3").arg(program), *m_runs);
        verifyOldResults();
    }
}

void tst_adaptkest_faults::brokenEngine_data()
{
    addBrokenEngines();
}

void tst_adaptkest_faults::brokenEngine()
{
    QFETCH(QString, part);
    QFETCH(QString, reason);
    for (const QString& program : {program(), runkestProgram()}) {
        const SuiteResult result =
            runSuite(program, {text("m")}, m_runs->folder(), m_runs->fakeEnvironment(part));
        QCOMPARE(result.exitCode, 1);
        const QStringList errors = result.bodies(text("error"));
        QCOMPARE(errors.size(), 1);
        QVERIFY(errors.first().startsWith(text("ERROR 2602: m.nec: at 2")));
        QVERIFY2(errors.first().contains(reason), qPrintable(errors.first()));
        QCOMPARE(m_runs->processCount(), 0);
        verifyOldResults();
    }
}

void tst_adaptkest_faults::missingEngine()
{
    for (const QString& program : {program(), runkestProgram()}) {
        QProcessEnvironment environment = m_runs->environment();
        environment.insert(text("KEST_NEC2C"), text("/nowhere/engine"));
        const SuiteResult result = runSuite(program, {text("m")}, m_runs->folder(), environment);
        QCOMPARE(result.exitCode, 1);
        QCOMPARE(result.bodies(text("error")).size(), 1);
        QVERIFY(result.hasText(text("ERROR 2601: m.nec: the engine '/nowhere/engine'")));
        verifyOldResults();
    }
}

// Somebody else ends the component that runkest has started.
void tst_adaptkest_faults::adaptkestThatIsKilledIsToldOf()
{
    QProcess run;
    startRun(run, runkestProgram(), m_runs->fakeEnvironment(text("hang")));
    QVERIFY(m_runs->waitForProcesses(5));
    const QByteArray children = readFile(text("/proc/%1/task/%1/children").arg(run.processId()));
    const int child = children.simplified().split(' ').first().toInt();
    QVERIFY(child > 0);
    QCOMPARE(::kill(child, SIGKILL), 0);
    QVERIFY(run.waitForFinished());
    QCOMPARE(run.exitCode(), 1);
    const QByteArray output = run.readAllStandardOutput();
    QCOMPARE(output.count("-*-error-*-"), 1);
    QVERIFY2(output.contains("adaptkest' crashed"), output.constData());
    QVERIFY(m_runs->waitForEnd());
}

void tst_adaptkest_faults::adaptkestThatIsMissingIsToldOf()
{
    const QString alone = m_runs->path(text("runkest"));
    QVERIFY(QFile::copy(runkestProgram(), alone));
    const SuiteResult result =
        runSuite(alone, {text("m")}, m_runs->folder(), m_runs->environment());
    QCOMPARE(result.exitCode, 1);
    const QStringList errors = result.bodies(text("error"));
    QCOMPARE(errors.size(), 1);
    QVERIFY2(errors.first().contains(text("adaptkest' cannot be started")),
             qPrintable(errors.first()));
    QVERIFY(QFile::remove(alone));
    verifyOldResults();
}

QTEST_GUILESS_MAIN(tst_adaptkest_faults)
#include "tst_adaptkest_faults.moc"
