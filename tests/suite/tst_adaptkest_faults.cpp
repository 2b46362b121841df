#include "MarkedRuns.h"
#include "SuiteRun.h"

#include <TestRandom.h>

#include <QDir>
#include <QElapsedTimer>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include <csignal>
#include <memory>

// Adaptive runs that are stopped or killed, meet a broken engine, a strange folder or state of
// another model: they end in time, say why, leave no process, and lose nothing.
class tst_adaptkest_faults : public QObject
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
    void secondRunIsRefused();
    void stateOfAnotherModelIsRefused_data();
    void stateOfAnotherModelIsRefused();
    void damagedStateIsRefused_data();
    void damagedStateIsRefused();
    void stateInTheWrongPlaceIsRefused();
    void foreignFolderIsLeftAlone_data();
    void foreignFolderIsLeftAlone();
    void foreignFilesStay();
    void emptyFolderIsUsed();
    void linksAreNotFollowed_data();
    void linksAreNotFollowed();
    void unwritableFolder();
    void resultThatCannotBeWritten();
    void fullDiskLosesNothing();
    void failedStartKeepsTheOldState();

private:
    void startRun(QProcess& run, const QString& program, const QProcessEnvironment& environment);
    SuiteResult run(const char* arguments);
    void verifyOldResults();
    bool waitForAnalysis(int number);

    std::unique_ptr<MarkedRuns> m_runs;
};

namespace {

QString text(const char* latin1)
{
    return QString::fromLatin1(latin1);
}

QString program()
{
    return suiteHome() + text("/bin/adaptkest");
}

QStringList words(const char* line)
{
    return text(line).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

QByteArray model()
{
    QStringList cards = dipoleCards();
    cards[4] = text("FR 0 51 0 0 250 2");
    cards.insert(1, text("CM @adapt 0.005"));
    return deckOf(cards);
}

QString analysis(int number)
{
    return text("m.adaptkest/analysis_%1.json").arg(number, 3, 10, QLatin1Char('0'));
}

} // namespace

void tst_adaptkest_faults::init()
{
    m_runs = std::make_unique<MarkedRuns>();
    QVERIFY(!writeFile(m_runs->folder(), text("m.nec"), model()).isEmpty());
    QVERIFY(!writeFile(m_runs->folder(), text("m.out"), "old output").isEmpty());
    QVERIFY(!writeFile(m_runs->folder(), text("m.csv"), "old table").isEmpty());
}

void tst_adaptkest_faults::startRun(QProcess& run, const QString& program,
                                    const QProcessEnvironment& environment)
{
    run.setWorkingDirectory(m_runs->folder());
    run.setProcessEnvironment(environment);
    run.start(program, {text("m"), text("-np"), text("3")});
    QVERIFY(run.waitForStarted());
}

SuiteResult tst_adaptkest_faults::run(const char* arguments)
{
    return runSuite(program(), words(arguments), m_runs->folder(), m_runs->environment());
}

void tst_adaptkest_faults::verifyOldResults()
{
    QCOMPARE(readFile(m_runs->path(text("m.out"))), QByteArray("old output"));
    QCOMPARE(readFile(m_runs->path(text("m.csv"))), QByteArray("old table"));
    QCOMPARE(readFile(m_runs->path(text("m.nec"))), model());
    QStringList entries = m_runs->entries();
    entries.removeAll(text("m.adaptkest"));
    QCOMPARE(entries, words("m.csv m.nec m.out"));
    QCOMPARE(m_runs->temporaryEntries(), QStringList());
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

    QElapsedTimer clock;
    clock.start();
    QVERIFY(run.processId() > 0);
    QCOMPARE(::kill(static_cast<pid_t>(run.processId()), signal), 0);
    QVERIFY(run.waitForFinished(10000));
    QVERIFY2(clock.elapsed() < 2000, qPrintable(QString::number(clock.elapsed())));

    QCOMPARE(run.exitStatus(), QProcess::NormalExit);
    QCOMPARE(run.exitCode(), 128 + signal);
    QCOMPARE(m_runs->processCount(), 0);
    const QByteArray output = run.readAllStandardOutput();
    QCOMPARE(output.count("-*-error-*-"), 1);
    QVERIFY(output.contains("-*-error-*-ERROR 2901: m.nec: stopped\n"));
    QVERIFY(!output.contains("-*-total-percentage-*-100%"));
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
    QTest::newRow("adaptkest stopped") << program() << SIGTERM;
    QTest::newRow("adaptkest killed") << program() << SIGKILL;
    QTest::newRow("runkest stopped") << runkestProgram() << SIGTERM;
    QTest::newRow("runkest killed") << runkestProgram() << SIGKILL;
}

void tst_adaptkest_faults::stoppedRunGoesOnToTheSameBytes()
{
    QFETCH(QString, program);
    QFETCH(int, signal);
    QProcess run;
    startRun(run, program, m_runs->slowEnvironment(0.1));
    QVERIFY(waitForAnalysis(2));
    QVERIFY(run.processId() > 0);
    QCOMPARE(::kill(static_cast<pid_t>(run.processId()), signal), 0);
    QVERIFY(run.waitForFinished(10000));
    QVERIFY(m_runs->waitForEnd());
    QCOMPARE(readFile(m_runs->path(text("m.out"))), QByteArray("old output"));
    QVERIFY(QFile::exists(m_runs->path(analysis(1))));

    const SuiteResult rest = this->run("m --restart 2");
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
        QElapsedTimer clock;
        clock.start();
        QVERIFY(run.state() == QProcess::NotRunning || run.waitForFinished(10000));
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
        const QString command = text("('%1' m -np 3; echo $? > '%2') | head -n 1")
                                    .arg(program, m_runs->path(text("code")));
        const SuiteResult result =
            runSuite(text("/bin/sh"), {text("-c"), command}, m_runs->folder(),
                     m_runs->fakeEnvironment(text("hang")));
        QCOMPARE(result.errorOutput, QByteArray());
        QCOMPARE(readFile(m_runs->path(text("code"))), QByteArray("1\n"));
        QVERIFY(QFile::remove(m_runs->path(text("code"))));
        QVERIFY(m_runs->waitForEnd());
        verifyOldResults();
    }
}

void tst_adaptkest_faults::brokenEngine_data()
{
    QTest::addColumn<QString>("part");
    QTest::addColumn<QString>("reason");
    QTest::newRow("crash") << text("crash") << text("the engine crashed");
    QTest::newRow("fail") << text("fail") << text("the engine ended with code 3");
    QTest::newRow("garbage") << text("garbage") << text("no input impedance");
    QTest::newRow("silent") << text("silent") << text("the engine wrote no output");
    QTest::newRow("not a number") << text("notnumber") << text("no input impedance");
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
    QVERIFY(run.waitForFinished(10000));
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

void tst_adaptkest_faults::secondRunIsRefused()
{
    QProcess first;
    startRun(first, program(), m_runs->slowEnvironment(0.2));
    QVERIFY(m_runs->waitForProcesses(4));
    const SuiteResult second = run("m");
    QCOMPARE(second.exitCode, 1);
    QCOMPARE(second.bodies(text("error")),
             QStringList(text("ERROR 2722: m.nec: the folder 'm.adaptkest' cannot be used, another "
                              "run of adaptkest on this model uses it")));
    QVERIFY(QFile::exists(m_runs->path(text("m.adaptkest/made_by_adaptkest"))));
    QVERIFY(first.waitForFinished());
    QCOMPARE(first.exitCode(), 0);
    QVERIFY(readFile(m_runs->path(text("m.csv"))).startsWith("frequency_MHz,"));
}

void tst_adaptkest_faults::stateOfAnotherModelIsRefused_data()
{
    QTest::addColumn<QByteArray>("from");
    QTest::addColumn<QByteArray>("to");
    QTest::newRow("wire") << QByteArray("-0.25") << QByteArray("-0.26");
    QTest::newRow("tolerance") << QByteArray("@adapt 0.005") << QByteArray("@adapt 0.006");
    QTest::newRow("count") << QByteArray("FR 0 51") << QByteArray("FR 0 52");
    QTest::newRow("start") << QByteArray("250 2") << QByteArray("251 2");
    QTest::newRow("source") << QByteArray("EX 0 1 11") << QByteArray("EX 0 1 12");
}

void tst_adaptkest_faults::stateOfAnotherModelIsRefused()
{
    QFETCH(QByteArray, from);
    QFETCH(QByteArray, to);
    QCOMPARE(run("m --keep-files").exitCode, 0);
    const QByteArray table = readFile(m_runs->path(text("m.csv")));
    const QByteArray state = readFile(m_runs->path(analysis(2)));
    QVERIFY(!state.isEmpty());
    QVERIFY(!writeFile(m_runs->folder(), text("m.nec"), model().replace(from, to)).isEmpty());
    const SuiteResult result = run("m --restart 2");
    QCOMPARE(result.exitCode, 1);
    QCOMPARE(result.bodies(text("error")),
             QStringList(text("ERROR 2721: m.nec: the file 'analysis_001.json' cannot be used, it "
                              "belongs to another model, or the model was changed")));
    QCOMPARE(readFile(m_runs->path(text("m.csv"))), table);
    QCOMPARE(readFile(m_runs->path(analysis(2))), state);
}

void tst_adaptkest_faults::damagedStateIsRefused_data()
{
    QTest::addColumn<QByteArray>("from");
    QTest::addColumn<QByteArray>("to");
    const auto add = [](const char* name, const char* from, const char* to) {
        QTest::newRow(name) << QByteArray(from) << QByteArray(to);
    };
    add("empty", "", "");
    add("half", "\"points\"", "");
    add("no JSON", "{", "<");
    add("other format", "\"format\": 1", "\"format\": 2");
    add("other number", "\"analysis\": 1", "\"analysis\": 2");
    add("impedance", "\"resistance_ohm\": ", "\"resistance_ohm\": 1");
    add("output", "\"output\": \"", "\"output\": \"AAAA");
    add("no points", "\"points\"", "\"point\"");
    add("other frequency", "\"frequency_MHz\": 250", "\"frequency_MHz\": 251");
}

void tst_adaptkest_faults::damagedStateIsRefused()
{
    QFETCH(QByteArray, from);
    QFETCH(QByteArray, to);
    QCOMPARE(run("m --keep-files").exitCode, 0);
    const QByteArray table = readFile(m_runs->path(text("m.csv")));
    const QByteArray state = readFile(m_runs->path(analysis(1)));
    QByteArray damaged = state;
    if (from.isEmpty()) {
        damaged.clear();
    } else if (to.isEmpty()) {
        damaged.truncate(state.size() / 2);
    } else {
        QVERIFY(damaged.contains(from));
        damaged.replace(damaged.indexOf(from), from.size(), to);
    }
    QVERIFY(damaged != state);
    QVERIFY(!writeFile(m_runs->folder(), analysis(1), damaged).isEmpty());
    const SuiteResult result = run("m --restart 1");
    QCOMPARE(result.exitCode, 1);
    const QStringList errors = result.bodies(text("error"));
    QCOMPARE(errors.size(), 1);
    QVERIFY2(errors.first().startsWith(text("ERROR 2721: m.nec: ")), qPrintable(errors.first()));
    QVERIFY2(errors.first().contains(text("analysis")), qPrintable(errors.first()));
    QCOMPARE(readFile(m_runs->path(text("m.csv"))), table);
    QCOMPARE(readFile(m_runs->path(analysis(1))), damaged);
}

void tst_adaptkest_faults::stateInTheWrongPlaceIsRefused()
{
    QCOMPARE(run("m --keep-files").exitCode, 0);
    const QByteArray second =
        readFile(m_runs->path(analysis(2))).replace("\"analysis\": 2", "\"analysis\": 1");
    QVERIFY(!writeFile(m_runs->folder(), analysis(1), second).isEmpty());
    const SuiteResult result = run("m --restart 1");
    QCOMPARE(result.exitCode, 1);
    QCOMPARE(result.bodies(text("error")),
             QStringList(text("ERROR 2721: m.nec: analysis 1 does not go on from the one before "
                              "it")));
}

void tst_adaptkest_faults::foreignFolderIsLeftAlone_data()
{
    QTest::addColumn<bool>("isFile");
    QTest::addColumn<QString>("reason");
    QTest::newRow("folder") << false << text("it was not made by adaptkest");
    QTest::newRow("file") << true << text("something else has this name");
}

void tst_adaptkest_faults::foreignFolderIsLeftAlone()
{
    QFETCH(bool, isFile);
    QFETCH(QString, reason);
    const QString name = isFile ? text("m.adaptkest") : analysis(1);
    QVERIFY(isFile || QDir(m_runs->folder()).mkdir(text("m.adaptkest")));
    QVERIFY(!writeFile(m_runs->folder(), name, "mine").isEmpty());
    const SuiteResult result = run("m");
    QCOMPARE(result.exitCode, 1);
    QCOMPARE(
        result.bodies(text("error")),
        QStringList(text("ERROR 2722: m.nec: the folder 'm.adaptkest' cannot be used, ") + reason));
    QCOMPARE(readFile(m_runs->path(name)), QByteArray("mine"));
    verifyOldResults();
}

void tst_adaptkest_faults::foreignFilesStay()
{
    QCOMPARE(run("m --keep-files").exitCode, 0);
    const QString folder = m_runs->path(text("m.adaptkest"));
    for (const char* name : {"notes.txt", "analysis_001.json.bak", "analysis_x.json"}) {
        QVERIFY(!writeFile(folder, text(name), "mine").isEmpty());
    }
    QVERIFY(QDir(folder).mkdir(text("analysis_002.json.d")));
    QVERIFY(!writeFile(folder, text("analysis_001.json.AbCdEf"), "half written").isEmpty());
    QCOMPARE(run("m").exitCode, 0);
    QCOMPARE(QDir(folder).entryList(QDir::AllEntries | QDir::NoDotAndDotDot, QDir::Name),
             words("analysis_001.json.bak analysis_002.json.d analysis_x.json made_by_adaptkest "
                   "notes.txt"));
    QCOMPARE(readFile(folder + text("/notes.txt")), QByteArray("mine"));
}

void tst_adaptkest_faults::emptyFolderIsUsed()
{
    QVERIFY(QDir(m_runs->folder()).mkdir(text("m.adaptkest")));
    QCOMPARE(run("m").exitCode, 0);
    QVERIFY(!QFile::exists(m_runs->path(text("m.adaptkest"))));
}

void tst_adaptkest_faults::linksAreNotFollowed_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("number");
    QTest::newRow("folder") << text("m.adaptkest") << 2722;
    QTest::newRow("output") << text("m.out") << 2701;
    QTest::newRow("table") << text("m.csv") << 2701;
    QTest::newRow("state") << analysis(1) << 2701;
    QTest::newRow("mark") << text("m.adaptkest/made_by_adaptkest") << 2722;
}

void tst_adaptkest_faults::linksAreNotFollowed()
{
    QFETCH(QString, name);
    QFETCH(int, number);
    const QTemporaryDir elsewhere;
    const QString target = elsewhere.filePath(text("target"));
    const bool isFolder = name == QLatin1String("m.adaptkest");
    QVERIFY(isFolder ? QDir(elsewhere.path()).mkdir(text("target"))
                     : !writeFile(elsewhere.path(), text("target"), "mine").isEmpty());
    if (name.contains(QLatin1Char('/'))) {
        QCOMPARE(run("m --keep-files").exitCode, 0);
    }
    QFile::remove(m_runs->path(name));
    QVERIFY(QFile::link(target, m_runs->path(name)));
    const SuiteResult result = run("m");
    QCOMPARE(result.exitCode, 1);
    const QStringList errors = result.bodies(text("error"));
    QCOMPARE(errors.size(), 1);
    QVERIFY2(errors.first().startsWith(text("ERROR %1: m.nec: ").arg(number)),
             qPrintable(errors.first()));
    QVERIFY(QFileInfo(m_runs->path(name)).isSymLink());
    QCOMPARE(isFolder ? QDir(target).isEmpty() : readFile(target) == "mine", true);
}

// Nobody, not even the superuser, can make an entry with so long a name.
void tst_adaptkest_faults::unwritableFolder()
{
    const QString name(248, QLatin1Char('x'));
    QVERIFY(!writeFile(m_runs->folder(), name + text(".nec"), model()).isEmpty());
    const SuiteResult result = runSuite(program(), {name}, m_runs->folder(), m_runs->environment());
    QCOMPARE(result.exitCode, 1);
    const QStringList errors = result.bodies(text("error"));
    QCOMPARE(errors.size(), 1);
    QVERIFY(errors.first().startsWith(text("ERROR 2722: ")));
    QVERIFY2(errors.first().contains(text("cannot be used, it cannot be made, ")),
             qPrintable(errors.first()));
    QVERIFY(QFile::remove(m_runs->path(name + text(".nec"))));
    verifyOldResults();
}

void tst_adaptkest_faults::resultThatCannotBeWritten()
{
    QVERIFY(QFile::remove(m_runs->path(text("m.csv"))));
    QVERIFY(QDir(m_runs->folder()).mkdir(text("m.csv")));
    const SuiteResult result = run("m");
    QCOMPARE(result.exitCode, 1);
    QVERIFY(result.hasText(text("ERROR 2701: m.nec: the result file 'm.csv'")));
    QVERIFY(!result.hasText(text("Analysis 1")));
    QCOMPARE(m_runs->entries(), words("m.csv m.nec m.out"));
    QCOMPARE(readFile(m_runs->path(text("m.out"))), QByteArray("old output"));
}

// A limit on the size of files stands in for a full disk: the analyses fit, the output does not.
void tst_adaptkest_faults::fullDiskLosesNothing()
{
    const QString command = text("ulimit -f 64; exec '%1' m").arg(program());
    const SuiteResult result =
        runSuite(text("/bin/sh"), {text("-c"), command}, m_runs->folder(), m_runs->environment());
    QVERIFY(!result.isCrash);
    QCOMPARE(result.exitCode, 1);
    QVERIFY2(result.hasText(text("ERROR 2701: m.nec: the result file 'm.out' cannot be written")),
             qPrintable(result.lines.join(QLatin1Char('\n'))));
    verifyOldResults();
    int last = 0;
    while (QFile::exists(m_runs->path(analysis(last + 1)))) {
        ++last;
    }
    QVERIFY(last > 2);
    const SuiteResult rest = run(qPrintable(text("m --restart %1").arg(last)));
    QCOMPARE(rest.exitCode, 0);
    QVERIFY(!rest.hasText(text("Analysis %1,").arg(last + 1)));
}

// A run from the start replaces the old state only once it has something of its own.
void tst_adaptkest_faults::failedStartKeepsTheOldState()
{
    QCOMPARE(run("m --keep-files").exitCode, 0);
    const QByteArray state = readFile(m_runs->path(analysis(2)));
    QVERIFY(!state.isEmpty());
    const SuiteResult failed =
        runSuite(program(), {text("m")}, m_runs->folder(), m_runs->fakeEnvironment(text("crash")));
    QCOMPARE(failed.exitCode, 1);
    QCOMPARE(readFile(m_runs->path(analysis(2))), state);
    QCOMPARE(run("m --restart 2").exitCode, 0);
}

QTEST_GUILESS_MAIN(tst_adaptkest_faults)
#include "tst_adaptkest_faults.moc"
