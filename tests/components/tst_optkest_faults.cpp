// SPDX-License-Identifier: MIT
#include "BrokenEngines.h"
#include "OptkestRun.h"

#include <TestRandom.h>
#include <Text.h>
#include <UnloadedClock.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QtTest>

#include <csignal>

// Optimisations that are stopped, killed, disturbed or meet a broken engine: they end in time, say
// why, leave no process behind, keep earlier results, and can be gone on with.
class tst_optkest_faults : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void signalEndsEveryProcess_data();
    void signalEndsEveryProcess();
    void stopSaysWhatIsKept();
    void killedOptimisationTakesItsRunsAlong();
    void stoppedAtAnyMoment();
    void killedAtAnyMoment();
    void closedOutputEndsTheOptimisation();
    void secondOptimisationIsRefused();
    void folderOfAKilledRunIsTakenOver();
    void brokenEngine_data();
    void brokenEngine();
    void failureKeepsWhatIsDone();
    void fullDiskAtTheEnd();
    void folderOfSomethingElseIsLeftAlone();
    void stateThatCannotBeWritten();

private:
    void start(QProcess& process, const QString& enginePart, const QString& options);
    void verifyOldResults();
    int lastSavedRun() const;
    void verifyRestart(const QString& options);

    std::unique_ptr<OptkestRun> m_model;
};

namespace {

// In ms: with the slowed-down engine an optimisation takes longer.
constexpr int latestMoment = 1700;

int repetitions()
{
    return qEnvironmentVariableIsSet("KEST_FULL_TESTS") ? 60 : 10;
}

const char* const resultNames[] = {"tune_opt.nec", "tune_opt.out", "tune_opt.csv", "tune.opt.csv"};

} // namespace

void tst_optkest_faults::init()
{
    m_model = std::make_unique<OptkestRun>();
    for (const char* name : resultNames) {
        QVERIFY(!writeFile(m_model->folder().path(), text(name), "old").isEmpty());
    }
}

void tst_optkest_faults::start(QProcess& process, const QString& enginePart, const QString& options)
{
    process.setWorkingDirectory(m_model->folder().path());
    process.setProcessEnvironment(m_model->environmentOf(enginePart));
    process.start(optkestProgram(), QStringList(text("tune")) + options.split(QLatin1Char(' ')));
    QVERIFY(process.waitForStarted());
}

// The old ones, and nothing else but the model and the folder of the runs.
void tst_optkest_faults::verifyOldResults()
{
    for (const char* name : resultNames) {
        QCOMPARE(readFile(m_model->path(name)), QByteArray("old"));
    }
    QCOMPARE(m_model->folder().entryList(QDir::Files | QDir::Hidden).size(), 5);
}

int tst_optkest_faults::lastSavedRun() const
{
    const QByteArray state = readFile(m_model->path("tune.optkest/optkest.json"));
    const QJsonArray runs =
        QJsonDocument::fromJson(state).object().value(text("evaluations")).toArray();
    return runs.isEmpty() ? 0 : runs.last().toObject().value(text("run")).toInt();
}

// Going on ends where an optimisation without a stop ends.
void tst_optkest_faults::verifyRestart(const QString& options)
{
    const int last = lastSavedRun();
    m_model->slowDown(0);
    const SuiteResult whole = OptkestRun().run(options);
    const SuiteResult again = m_model->run(options + QStringLiteral(" --restart %1").arg(last));
    QVERIFY2(again.exitCode == 0, qPrintable(again.lines.join(QLatin1Char('\n'))));
    QCOMPARE(tunedValue(again), tunedValue(whole));
    QVERIFY(tunedValue(again) > 0.4);
}

void tst_optkest_faults::signalEndsEveryProcess_data()
{
    QTest::addColumn<int>("signal");
    QTest::addColumn<QString>("part");
    QTest::newRow("terminate, engine hangs") << SIGTERM << text("hang");
    QTest::newRow("interrupt, engine hangs") << SIGINT << text("hang");
    QTest::newRow("terminate, engine and its child refuse") << SIGTERM << text("stubborn");
}

void tst_optkest_faults::signalEndsEveryProcess()
{
    QFETCH(int, signal);
    QFETCH(QString, part);
    QProcess process;
    start(process, part, text("-np 3"));
    // Itself, and three solvers with an engine each.
    QVERIFY(QTest::qWaitFor([this] { return m_model->processCount() >= 7; }, 20000));
    const UnloadedClock clock;
    QCOMPARE(::kill(static_cast<pid_t>(process.processId()), signal), 0);
    QVERIFY(process.waitForFinished());
    QVERIFY2(clock.elapsed() < 2000, qPrintable(QString::number(clock.elapsed())));
    QCOMPARE(process.exitStatus(), QProcess::NormalExit);
    QCOMPARE(process.exitCode(), 128 + signal);
    QCOMPARE(m_model->processCount(), 0);
    const QByteArray output = process.readAllStandardOutput();
    QCOMPARE(output.count("-*-error-*-"), 0);
    QVERIFY(output.contains("-*-notice-*-NOTE 301: stopped by SIG"));
    QVERIFY(!output.contains("-*-total-percentage-*-100%"));
    verifyOldResults();
    QVERIFY(!m_model->folder().exists(text("tune.optkest")));
    QCOMPARE(m_model->temporary().entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
             QStringList());
}

void tst_optkest_faults::stopSaysWhatIsKept()
{
    QProcess process;
    start(process, text("slow"), QString());
    QVERIFY(QTest::qWaitFor([this] { return m_model->runs().contains(text("run_0004")); }, 20000));
    process.terminate();
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.exitCode(), 143);
    const QByteArray output = process.readAllStandardOutput();
    QVERIFY2(output.contains("-*-notice-*-NOTE 308: 3 evaluations are kept in 'tune.optkest', "
                             "--restart 3 continues from there\n"),
             output.constData());
}

void tst_optkest_faults::killedOptimisationTakesItsRunsAlong()
{
    QProcess process;
    start(process, text("hang"), text("-np 3"));
    QVERIFY(QTest::qWaitFor([this] { return m_model->processCount() >= 7; }, 20000));
    process.kill();
    QVERIFY(process.waitForFinished());
    const UnloadedClock clock;
    QVERIFY(QTest::qWaitFor([this] { return m_model->processCount() == 0; }, 30000));
    QVERIFY(clock.elapsed() < 5000);
    verifyOldResults();
}

void tst_optkest_faults::stoppedAtAnyMoment()
{
    QRandomGenerator random = TestRandom::usual(9);
    for (int i = 0; i < repetitions(); ++i) {
        init();
        m_model->slowDown(0.1);
        const QString options = i % 2 == 0 ? text("-np 1") : text("-np 3");
        QProcess process;
        start(process, QString(), options);
        // The moment is what is tried.
        QTest::qWait(random.bounded(latestMoment));
        process.terminate();
        QVERIFY(process.waitForFinished());
        QCOMPARE(m_model->processCount(), 0);
        QCOMPARE(m_model->temporary().entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
                 QStringList());
        if (process.exitStatus() == QProcess::CrashExit) {
            // Before it could mind the signal.
            verifyOldResults();
            continue;
        }
        QCOMPARE(process.exitCode(), 128 + SIGTERM);
        verifyOldResults();
        const QStringList left =
            QDir(m_model->path("tune.optkest")).entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
        QVERIFY2(left.isEmpty() || left.contains(text("optkest.json")),
                 qPrintable(left.join(QLatin1Char(' '))));
        QVERIFY(!left.contains(text("final")));
        const QStringList runs = m_model->runs();
        for (const QString& run : runs) {
            const QDir folder(m_model->path("tune.optkest") + QLatin1Char('/') + run);
            QCOMPARE(folder.entryList(QDir::Files, QDir::Name),
                     QStringList({text("model.csv"), text("model.nec"), text("model.out")}));
        }
        if (i % 3 == 0) {
            verifyRestart(options);
        }
    }
}

void tst_optkest_faults::killedAtAnyMoment()
{
    QRandomGenerator random = TestRandom::usual(10);
    for (int i = 0; i < repetitions(); ++i) {
        init();
        m_model->slowDown(0.1);
        const QString options = i % 2 == 0 ? text("-np 1") : text("-np 3");
        QProcess process;
        start(process, QString(), options);
        // The moment is what is tried.
        QTest::qWait(random.bounded(latestMoment));
        process.kill();
        QVERIFY(process.waitForFinished());
        const UnloadedClock clock;
        QVERIFY(QTest::qWaitFor([this] { return m_model->processCount() == 0; }, 30000));
        QVERIFY(clock.elapsed() < 5000);
        verifyOldResults();
        if (i % 3 == 0) {
            verifyRestart(options);
        }
    }
}

// The reader takes one line and goes away.
void tst_optkest_faults::closedOutputEndsTheOptimisation()
{
    const QString command = QStringLiteral("('%1' tune -np 2; echo $? > '%2/code') | head -n 1")
                                .arg(optkestProgram(), m_model->folder().path());
    const SuiteResult result =
        runSuite(text("/bin/sh"), {text("-c"), command}, m_model->folder().path(),
                 m_model->environmentOf(text("hang")));
    QCOMPARE(result.errorOutput, QByteArray());
    QCOMPARE(readFile(m_model->path("code")), QByteArray("1\n"));
    QVERIFY(QFile::remove(m_model->path("code")));
    QCOMPARE(m_model->processCount(), 0);
    verifyOldResults();
}

void tst_optkest_faults::secondOptimisationIsRefused()
{
    QProcess process;
    start(process, text("hang"), text("-np 1"));
    QVERIFY(QTest::qWaitFor([this] { return m_model->processCount() >= 3; }, 20000));
    for (const char* options : {"", "-r", "--restart 1"}) {
        const SuiteResult second = m_model->run(text(options));
        QCOMPARE(second.exitCode, 1);
        const QString expected =
            QStringLiteral(
                "ERROR 2612: tune.nec: the folder 'tune.optkest' cannot be used, another "
                "run of optkest on this model, process %1 on %2, uses it")
                .arg(QString::number(process.processId()), QSysInfo::machineHostName());
        QCOMPARE(second.bodies(text("error")), QStringList(expected));
    }
    QVERIFY(QFile::exists(m_model->path("tune.optkest/run_0001/model.nec")));
    process.terminate();
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.exitCode(), 128 + SIGTERM);
}

void tst_optkest_faults::folderOfAKilledRunIsTakenOver()
{
    QProcess process;
    start(process, text("hang"), text("-np 1"));
    QVERIFY(QTest::qWaitFor([this] { return m_model->processCount() >= 3; }, 20000));
    const qint64 pid = process.processId();
    process.kill();
    QVERIFY(process.waitForFinished());
    QFile mark(m_model->path("tune.optkest/made_by_optkest"));
    QVERIFY(mark.open(QIODevice::ReadOnly));
    QVERIFY(mark.readAll().startsWith(text("process %1 on ").arg(pid).toUtf8()));
    QCOMPARE(m_model->run(text("-np 4")).exitCode, 0);
}

void tst_optkest_faults::brokenEngine_data()
{
    addBrokenEngines();
}

void tst_optkest_faults::brokenEngine()
{
    QFETCH(QString, part);
    QFETCH(QString, reason);
    for (const char* options : {"-np 1", "-np 4"}) {
        const SuiteResult result = runSuite(
            optkestProgram(), QStringList(text("tune")) + text(options).split(QLatin1Char(' ')),
            m_model->folder().path(), m_model->environmentOf(part));
        QCOMPARE(result.exitCode, 1);
        const QStringList errors = result.bodies(text("error"));
        QCOMPARE(errors.size(), 1);
        QVERIFY2(errors.first().startsWith(text("ERROR 2611: tune.nec: run ")),
                 qPrintable(errors.first()));
        QVERIFY2(errors.first().contains(text(" on the host 'localhost' failed, ")),
                 qPrintable(errors.first()));
        QVERIFY2(errors.first().contains(reason), qPrintable(errors.first()));
        QCOMPARE(m_model->processCount(), 0);
        verifyOldResults();
    }
}

// The seventh run fails; the six before are not run again.
void tst_optkest_faults::failureKeepsWhatIsDone()
{
    OptkestRun whole;
    QCOMPARE(whole.run().exitCode, 0);
    const QByteArray value =
        readFile(whole.path("tune.opt.csv")).split('\n').at(7).split(',').at(1);
    const QString engine =
        writeFile(m_model->temporary().path(), text("engine"),
                  "#!/bin/sh\nif [ ! -e '" + m_model->path("mended").toUtf8() + "' ] && grep -q '" +
                      QByteArray::number(value.toDouble() / 2, 'g', 10) +
                      "' \"$2\"; then exit 5; fi\n"
                      "exec nec2c \"$@\"\n");
    QVERIFY(QFile::setPermissions(engine, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    QProcessEnvironment environment = m_model->environment();
    environment.insert(text("KEST_NEC2C"), engine);
    const SuiteResult failed =
        runSuite(optkestProgram(), {text("tune")}, m_model->folder().path(), environment);
    QCOMPARE(failed.exitCode, 1);
    QVERIFY2(failed.hasText(text("ERROR 2611: tune.nec: run 7 on the host 'localhost' failed, ")),
             qPrintable(failed.lines.join(QLatin1Char('\n'))));
    QCOMPARE(lastSavedRun(), 6);
    // Its model shows what went wrong.
    QCOMPARE(m_model->runs().last(), text("run_0007"));
    QVERIFY(QFile::exists(m_model->path("tune.optkest/run_0007/model.nec")));
    verifyOldResults();
    QCOMPARE(m_model->takeEngineStarts(), 0);
    const SuiteResult again = m_model->run(text("--restart 6"));
    QCOMPARE(again.exitCode, 0);
    QCOMPARE(m_model->takeEngineStarts(), 19 - 6 + 21);
    QCOMPARE(readFile(m_model->path("tune_opt.nec")), readFile(whole.path("tune_opt.nec")));
}

// A limit on the size of files stands in for a full disk: what the runs write fits, the output of
// the tuned model does not.
void tst_optkest_faults::fullDiskAtTheEnd()
{
    const QString command =
        QStringLiteral("ulimit -f 64; exec '%1' tune -np 4").arg(optkestProgram());
    const SuiteResult result = runSuite(text("/bin/sh"), {text("-c"), command},
                                        m_model->folder().path(), m_model->environment());
    QVERIFY(!result.isCrash);
    QCOMPARE(result.exitCode, 1);
    const QStringList errors = result.bodies(text("error"));
    QCOMPARE(errors.size(), 1);
    QVERIFY2(
        errors.first().startsWith(text(
            "ERROR 2611: tune.nec: the run of the tuned model on the host 'localhost' failed, ")),
        qPrintable(errors.first()));
    verifyOldResults();
    QVERIFY(!m_model->folder().exists(text("tune.optkest/final")));
    verifyRestart(text("-np 4"));
}

void tst_optkest_faults::folderOfSomethingElseIsLeftAlone()
{
    QVERIFY(m_model->folder().mkpath(text("tune.optkest/run_0001")));
    const QString notes =
        writeFile(m_model->path("tune.optkest/run_0001"), text("model.nec"), "mine");
    QVERIFY(!notes.isEmpty());
    const SuiteResult result = m_model->run(text("-r"));
    QCOMPARE(result.exitCode, 1);
    QCOMPARE(result.bodies(text("error")),
             QStringList(text("ERROR 2612: tune.nec: the folder 'tune.optkest' cannot be used, it "
                              "was not made by optkest")));
    QCOMPARE(readFile(notes), QByteArray("mine"));
    verifyOldResults();
}

void tst_optkest_faults::stateThatCannotBeWritten()
{
    QVERIFY(m_model->folder().mkpath(text("tune.optkest/optkest.json")));
    QVERIFY(!writeFile(m_model->path("tune.optkest"), text("made_by_optkest"), "").isEmpty());
    const SuiteResult result = m_model->run();
    QCOMPARE(result.exitCode, 1);
    QVERIFY2(
        result.hasText(text("ERROR 2612: tune.nec: the file 'optkest.json' cannot be written")),
        qPrintable(result.lines.join(QLatin1Char('\n'))));
    QCOMPARE(m_model->processCount(), 0);
    verifyOldResults();
}

QTEST_GUILESS_MAIN(tst_optkest_faults)
#include "tst_optkest_faults.moc"
