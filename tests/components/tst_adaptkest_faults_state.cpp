// SPDX-License-Identifier: MIT
#include "AdaptkestFaults.h"
#include "MarkedRuns.h"
#include "SuiteRun.h"

#include <SystemSkips.h>

#include <QDir>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

// Adaptive runs that find state of another run, a strange folder or a full disk: they say so, and
// lose nothing.
class tst_adaptkest_faults_state : public QObject, protected AdaptkestFaults
{
    Q_OBJECT

private Q_SLOTS:
    void init();
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
};

void tst_adaptkest_faults_state::init()
{
    m_runs = std::make_unique<MarkedRuns>();
    QVERIFY(!writeFile(m_runs->folder(), text("m.nec"), adaptiveDipole()).isEmpty());
    QVERIFY(!writeFile(m_runs->folder(), text("m.out"), "old output").isEmpty());
    QVERIFY(!writeFile(m_runs->folder(), text("m.csv"), "old table").isEmpty());
}

void tst_adaptkest_faults_state::secondRunIsRefused()
{
    QProcess first;
    startRun(first, program(), m_runs->slowEnvironment(0.2));
    QVERIFY(m_runs->waitForProcesses(4));
    const SuiteResult second = run("m");
    QCOMPARE(second.exitCode, 1);
    QCOMPARE(
        second.bodies(text("error")),
        QStringList(text("ERROR 2722: m.nec: the folder 'm.adaptkest' cannot be used, another "
                         "run of adaptkest on this model, process %1 on %2, uses it")
                        .arg(QString::number(first.processId()), QSysInfo::machineHostName())));
    QVERIFY(QFile::exists(m_runs->path(text("m.adaptkest/made_by_adaptkest"))));
    QVERIFY(first.waitForFinished());
    QCOMPARE(first.exitCode(), 0);
    QVERIFY(readFile(m_runs->path(text("m.csv"))).startsWith("frequency_MHz,"));
}

void tst_adaptkest_faults_state::stateOfAnotherModelIsRefused_data()
{
    QTest::addColumn<QByteArray>("from");
    QTest::addColumn<QByteArray>("to");
    QTest::newRow("wire") << QByteArray("-0.25") << QByteArray("-0.26");
    QTest::newRow("tolerance") << QByteArray("@adapt 0.005") << QByteArray("@adapt 0.006");
    QTest::newRow("count") << QByteArray("FR 0 51") << QByteArray("FR 0 52");
    QTest::newRow("start") << QByteArray("250 2") << QByteArray("251 2");
    QTest::newRow("source") << QByteArray("EX 0 1 11") << QByteArray("EX 0 1 12");
}

void tst_adaptkest_faults_state::stateOfAnotherModelIsRefused()
{
    QFETCH(QByteArray, from);
    QFETCH(QByteArray, to);
    QCOMPARE(run("m --keep-files").exitCode, 0);
    const QByteArray table = readFile(m_runs->path(text("m.csv")));
    const QByteArray state = readFile(m_runs->path(analysis(2)));
    QVERIFY(!state.isEmpty());
    QVERIFY(
        !writeFile(m_runs->folder(), text("m.nec"), adaptiveDipole().replace(from, to)).isEmpty());
    const SuiteResult result = run("m --restart 2");
    QCOMPARE(result.exitCode, 1);
    QCOMPARE(result.bodies(text("error")),
             QStringList(text("ERROR 2721: m.nec: the file 'analysis_001.json' cannot be used, it "
                              "belongs to another model, or the model was changed")));
    QCOMPARE(readFile(m_runs->path(text("m.csv"))), table);
    QCOMPARE(readFile(m_runs->path(analysis(2))), state);
}

void tst_adaptkest_faults_state::damagedStateIsRefused_data()
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
    // moc cannot read raw strings with a single quotation mark.
    // NOLINTBEGIN(modernize-raw-string-literal)
    add("output", "\"output\": \"", "\"output\": \"AAAA");
    // NOLINTEND(modernize-raw-string-literal)
    add("no points", "\"points\"", "\"point\"");
    add("other frequency", "\"frequency_MHz\": 250", "\"frequency_MHz\": 251");
}

void tst_adaptkest_faults_state::damagedStateIsRefused()
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

void tst_adaptkest_faults_state::stateInTheWrongPlaceIsRefused()
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

void tst_adaptkest_faults_state::foreignFolderIsLeftAlone_data()
{
    QTest::addColumn<bool>("isFile");
    QTest::addColumn<QString>("reason");
    QTest::newRow("folder") << false << text("it was not made by adaptkest");
    QTest::newRow("file") << true << text("something else has this name");
}

void tst_adaptkest_faults_state::foreignFolderIsLeftAlone()
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

void tst_adaptkest_faults_state::foreignFilesStay()
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

void tst_adaptkest_faults_state::emptyFolderIsUsed()
{
    QVERIFY(QDir(m_runs->folder()).mkdir(text("m.adaptkest")));
    QCOMPARE(run("m").exitCode, 0);
    QVERIFY(!QFile::exists(m_runs->path(text("m.adaptkest"))));
}

void tst_adaptkest_faults_state::linksAreNotFollowed_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("number");
    QTest::newRow("folder") << text("m.adaptkest") << 2722;
    QTest::newRow("output") << text("m.out") << 2701;
    QTest::newRow("table") << text("m.csv") << 2701;
    QTest::newRow("state") << analysis(1) << 2701;
    QTest::newRow("mark") << text("m.adaptkest/made_by_adaptkest") << 2722;
}

void tst_adaptkest_faults_state::linksAreNotFollowed()
{
    SKIP_WITHOUT_SYMBOLIC_LINKS();
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
void tst_adaptkest_faults_state::unwritableFolder()
{
    const QString name(248, QLatin1Char('x'));
    QVERIFY(!writeFile(m_runs->folder(), name + text(".nec"), adaptiveDipole()).isEmpty());
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

void tst_adaptkest_faults_state::resultThatCannotBeWritten()
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
void tst_adaptkest_faults_state::fullDiskLosesNothing()
{
    SKIP_WITHOUT_SHELL();
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
void tst_adaptkest_faults_state::failedStartKeepsTheOldState()
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

QTEST_GUILESS_MAIN(tst_adaptkest_faults_state)
#include "tst_adaptkest_faults_state.moc"
