// SPDX-License-Identifier: MIT
#include "BrokenEngines.h"
#include "MarkedRuns.h"
#include "SuiteRun.h"

#include <Text.h>
#include <UnloadedClock.h>

#include <QDir>
#include <QRegularExpression>
#include <QtTest>

#include <csignal>
#include <memory>

// Parallel runs on this machine: the results are those of a sequential run, whatever goes wrong is
// told, and nothing is left.
class tst_runkest_parallel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void resultIsThatOfASequentialRun_data();
    void resultIsThatOfASequentialRun();
    void largeModelReachesTheProcesses();
    void laterResultsMayComeFirst();
    void moreProcessesThanCountedAreAWarning();
    void badMachinesFileStartsNothing_data();
    void badMachinesFileStartsNothing();
    void machinesFileIsUnusedForLocalProcesses();
    void brokenEngine_data();
    void brokenEngine();
    void missingRuntime();
    void hostThatCannotBeReached_data();
    void hostThatCannotBeReached();
    void haltedProcessIsLost();
    void priorityReachesTheEngines();

private:
    QProcessEnvironment environment(const QString& part = QString()) const;
    SuiteResult run(const QStringList& arguments, const QProcessEnvironment& environment) const;
    QString path(const QString& name) const;

    std::unique_ptr<MarkedRuns> m_runs;
};

namespace {

constexpr int patience = 20000; // ms

QStringList local(const char* count)
{
    return {text("-np"), text(count), text("--parallel-authenticate"), text("localonly")};
}

QStringList byFile(const QString& file, const char* count = "all")
{
    return {text("-np"),
            text(count),
            text("--parallel-authenticate"),
            text("default"),
            text("--machines-file"),
            file};
}

QByteArray processName(const QString& process)
{
    return readFile(QStringLiteral("/proc/%1/comm").arg(process)).trimmed();
}

} // namespace

void tst_runkest_parallel::init()
{
    m_runs = std::make_unique<MarkedRuns>();
    QVERIFY(!copyModel(text("dipole.nec"), m_runs->folder()).isEmpty());
}

// Whatever a test does, nothing is left of it.
void tst_runkest_parallel::cleanup()
{
    const UnloadedClock clock;
    QVERIFY2(m_runs->waitUntilNothingIsLeft(), qPrintable(m_runs->left().join(QLatin1Char(' '))));
    QVERIFY(clock.elapsed() < 5000);
}

QProcessEnvironment tst_runkest_parallel::environment(const QString& part) const
{
    return part.isEmpty() ? m_runs->environment() : m_runs->fakeEnvironment(part);
}

SuiteResult tst_runkest_parallel::run(const QStringList& arguments,
                                      const QProcessEnvironment& environment) const
{
    return runSuite(runkestProgram(), QStringList(text("dipole")) + arguments, m_runs->folder(),
                    environment);
}

QString tst_runkest_parallel::path(const QString& name) const
{
    return m_runs->path(name);
}

void tst_runkest_parallel::resultIsThatOfASequentialRun_data()
{
    QTest::addColumn<QString>("model");
    QTest::addColumn<QStringList>("arguments");
    for (const char* model : {"dipole", "yagi", "monopole"}) {
        for (const char* count : {"1", "2", "4"}) {
            QTest::addRow("%s, %s processes", model, count) << text(model) << local(count);
        }
    }
    QTest::newRow("all") << text("dipole") << local("all");
    QTest::newRow("by a machines file") << text("yagi") << byFile(text("machines"));
    QTest::newRow("fewer than the machines file") << text("yagi") << byFile(text("machines"), "2");
    QTest::newRow("capitals") << text("dipole")
                              << QStringList{text("-NP"), text("2"),
                                             text("--parallel-authenticate"), text("sspi")};
}

void tst_runkest_parallel::resultIsThatOfASequentialRun()
{
    QFETCH(QString, model);
    QFETCH(QStringList, arguments);
    QVERIFY(!copyModel(model + text(".nec"), m_runs->folder()).isEmpty());
    QVERIFY(!writeFile(m_runs->folder(), text("machines"), "localhost:2\n127.0.0.1:1\n").isEmpty());
    const SuiteResult alone = runSuite(runkestProgram(), {model}, m_runs->folder());
    QCOMPARE(alone.exitCode, 0);
    const QByteArray output = readFile(path(model + text(".out")));
    const QByteArray table = readFile(path(model + text(".csv")));
    QVERIFY(!output.isEmpty() && QFile::remove(path(model + text(".out"))));
    QVERIFY(!table.isEmpty() && QFile::remove(path(model + text(".csv"))));

    const SuiteResult result =
        runSuite(runkestProgram(), QStringList(model) + arguments, m_runs->folder(), environment());
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(result.bodies(text("error")), QStringList());
    QVERIFY(readFile(path(model + text(".out"))) == output);
    QCOMPARE(readFile(path(model + text(".csv"))), table);
    QCOMPARE(result.lines.filter(text("-*-")), alone.lines.filter(text("-*-")));
}

// More bytes than fit into a pipe.
void tst_runkest_parallel::largeModelReachesTheProcesses()
{
    QStringList cards;
    for (int i = 0; i < 20000; ++i) {
        cards.append(QStringLiteral("CM comment number %1 of many").arg(i));
    }
    const QByteArray deck = deckOf(cards + dipoleCards());
    QVERIFY(!writeFile(m_runs->folder(), text("dipole.nec"), deck).isEmpty());
    QVERIFY(deck.size() > 500000);
    const SuiteResult result = run(local("2"), environment(text("slow")));
    QCOMPARE(result.bodies(text("error")), QStringList());
    QCOMPARE(result.exitCode, 0);
}

void tst_runkest_parallel::laterResultsMayComeFirst()
{
    QStringList cards = dipoleCards();
    cards.replaceInStrings(text("FR 0 3"), text("FR 0 12"));
    QVERIFY(!writeFile(m_runs->folder(), text("dipole.nec"), deckOf(cards)).isEmpty());
    const SuiteResult result = run(local("3"), environment(text("reversed")));
    QCOMPARE(result.exitCode, 0);
    const QList<QByteArray> lines = readFile(path(text("dipole.csv"))).split('\n');
    QCOMPARE(lines.size(), 14);
    for (int i = 1; i <= 12; ++i) {
        QVERIFY(lines.at(i).startsWith(QByteArray::number(290 + 5 * (i - 1)) + ','));
    }
}

void tst_runkest_parallel::moreProcessesThanCountedAreAWarning()
{
    QVERIFY(!writeFile(m_runs->folder(), text("machines"), "localhost:1\n").isEmpty());
    const SuiteResult result = run(byFile(text("machines"), "2"), environment());
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(result.bodies(text("warning")),
             QStringList(text("WARNING 3602: 2 processes were asked for and the machines file "
                              "counts 1, so hosts take more than they should")));
}

void tst_runkest_parallel::badMachinesFileStartsNothing_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<int>("errors");
    QTest::newRow("option") << QByteArray("-oProxyCommand=touch${IFS}hacked:1\n") << 1;
    QTest::newRow("shell") << QByteArray("$(touch hacked):1\n`touch hacked`:1\n;touch hacked\n")
                           << 3;
    QTest::newRow("count") << QByteArray("localhost:0\n") << 1;
    QTest::newRow("empty") << QByteArray() << 1;
    QTest::newRow("too many") << QByteArray("localhost:4000\nb:4000\n") << 1;
    QTest::newRow("an address that the runtime cannot take") << QByteArray("[::1]:2\n") << 1;
}

void tst_runkest_parallel::badMachinesFileStartsNothing()
{
    QFETCH(QByteArray, content);
    QFETCH(int, errors);
    QVERIFY(!writeFile(m_runs->folder(), text("machines"), content).isEmpty());
    QProcessEnvironment recording = environment();
    recording.insert(text("KEST_MPIEXEC"), text("/bin/false"));
    const SuiteResult result = run(byFile(text("machines"), "1"), recording);
    QCOMPARE(result.exitCode, 1);
    const QStringList told = result.bodies(text("error"));
    QCOMPARE(told.size(), errors);
    QVERIFY(told.first().startsWith(text("ERROR 2021: dipole.nec: ")));
    QVERIFY(!result.hasText(text("Solving")));
    QVERIFY(!QFile::exists(path(text("hacked"))));
}

void tst_runkest_parallel::machinesFileIsUnusedForLocalProcesses()
{
    const SuiteResult result =
        run(local("2") + QStringList{text("--machines-file"), text("/nowhere")}, environment());
    QCOMPARE(result.exitCode, 0);
}

void tst_runkest_parallel::brokenEngine_data()
{
    addBrokenEngines(text("the engine ended with code 3, GEOMETRY DATA CARD ERROR, "
                          "- *-total-percentage- *-100% and; colons"));
}

void tst_runkest_parallel::brokenEngine()
{
    QFETCH(QString, part);
    QFETCH(QString, reason);
    QVERIFY(!writeFile(m_runs->folder(), text("dipole.out"), "old output").isEmpty());
    const SuiteResult result = run(local("2"), environment(part));
    QCOMPARE(result.exitCode, 1);
    const QStringList errors = result.bodies(text("error"));
    QCOMPARE(errors.size(), 1);
    QVERIFY2(errors.first().startsWith(text("ERROR 2602: dipole.nec: at 25")),
             qPrintable(errors.first()));
    QVERIFY2(errors.first().contains(reason), qPrintable(errors.first()));
    QVERIFY(errors.first().endsWith(
        QStringLiteral(", on the host '%1'").arg(QSysInfo::machineHostName())));
    QCOMPARE(readFile(path(text("dipole.out"))), QByteArray("old output"));
}

void tst_runkest_parallel::missingRuntime()
{
    QProcessEnvironment missing = environment();
    missing.insert(text("KEST_MPIEXEC"), text("/nowhere/mpiexec"));
    const SuiteResult result = run(local("2"), missing);
    QCOMPARE(result.exitCode, 1);
    QCOMPARE(result.bodies(text("error")),
             QStringList(text("ERROR 2602: dipole.nec: the parallel runtime '/nowhere/mpiexec' "
                              "cannot be started, install the package mpich or name another "
                              "program in KEST_MPIEXEC")));
}

void tst_runkest_parallel::hostThatCannotBeReached_data()
{
    QTest::addColumn<QByteArray>("machines");
    QTest::addColumn<QString>("ssh");
    QTest::addColumn<QString>("end");
    const QByteArray one = "no-such-host.invalid:2\n";
    const QByteArray two = "localhost:1\nno-such-host.invalid:1\n";
    QTest::newRow("the only one") << one << text("exit 1") << text("(code 1)");
    QTest::newRow("one of two") << two << text("exit 1") << text("(code 1)");
    QTest::newRow("no login") << one << text("exit 255")
                              << text(
                                     "(code 255), ssh must reach it by this name and log in with a "
                                     "key, without a question");
}

void tst_runkest_parallel::hostThatCannotBeReached()
{
    QFETCH(QByteArray, machines);
    QFETCH(QString, ssh);
    QFETCH(QString, end);
    QVERIFY(!writeFile(m_runs->folder(), text("machines"), machines).isEmpty());
    const QString program =
        writeFile(m_runs->folder(), text("ssh"), "#!/bin/sh\n" + ssh.toUtf8() + '\n');
    QFile::setPermissions(program, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    QProcessEnvironment failing = environment();
    failing.insert(text("KEST_SSH"), program);
    const SuiteResult result = run(byFile(text("machines")), failing);
    QCOMPARE(result.exitCode, 1);
    QCOMPARE(result.bodies(text("error")),
             QStringList(text("ERROR 2602: dipole.nec: the host 'no-such-host.invalid' cannot be "
                              "reached any more by ssh ") +
                         end));
}

// A process that is halted says nothing, like one whose host was cut off.
void tst_runkest_parallel::haltedProcessIsLost()
{
    QProcessEnvironment impatient = environment(text("slow"));
    impatient.insert(text("KEST_SILENCE_LIMIT"), text("2000"));
    QProcess process;
    process.setWorkingDirectory(m_runs->folder());
    process.setProcessEnvironment(impatient);
    process.start(runkestProgram(), QStringList(text("dipole")) + local("2"));
    QByteArray output;
    QVERIFY(QTest::qWaitFor(
        [&] {
            output += process.readAllStandardOutput();
            return output.contains("-*-percentage-*-3%");
        },
        patience));
    QStringList ranks;
    const QStringList processes = m_runs->processes();
    for (const QString& id : processes) {
        if (processName(id) == "sweepkest") {
            ranks.append(id);
        }
    }
    QCOMPARE(ranks.size(), 2);
    const auto halted = static_cast<pid_t>(ranks.last().toInt());
    QCOMPARE(::kill(halted, SIGSTOP), 0);
    QVERIFY(process.waitForFinished(patience));
    // By then it was killed, so it could not remove its folder.
    const QStringList folders =
        m_runs->temporaryEntries().filter(QRegularExpression(text("^kest-sweep-")));
    QVERIFY(folders.size() <= 1);
    for (const QString& folder : folders) {
        QVERIFY(QDir(m_runs->temporaryPath(folder)).removeRecursively());
    }
    output += process.readAllStandardOutput();
    QCOMPARE(process.exitCode(), 1);
    const QString lost =
        QStringLiteral("the host '%1' does not answer any more").arg(QSysInfo::machineHostName());
    QVERIFY2(output.contains(lost.toUtf8()), output.constData());
}

void tst_runkest_parallel::priorityReachesTheEngines()
{
    const QString engine = writeFile(m_runs->folder(), text("engine"),
                                     "#!/bin/sh\nnice > '" + m_runs->folder().toUtf8() +
                                         "/nice'\nexec nec2c \"$@\"\n");
    QVERIFY(QFile::setPermissions(engine, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    QProcessEnvironment own = environment();
    own.insert(text("KEST_NEC2C"), engine);
    for (const QStringList& how : {local("1"), QStringList()}) {
        const SuiteResult result = run(how + QStringList{text("--priority"), text("0")}, own);
        QCOMPARE(result.exitCode, 0);
        QCOMPARE(readFile(path(text("nice"))), QByteArray("19\n"));
        QVERIFY(QFile::remove(path(text("nice"))));
    }
}

QTEST_GUILESS_MAIN(tst_runkest_parallel)
#include "tst_runkest_parallel.moc"
