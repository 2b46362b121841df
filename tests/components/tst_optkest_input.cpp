// SPDX-License-Identifier: MIT
#include "OptkestParts.h"
#include "OptkestRun.h"

#include "CommandLine.h"
#include "ResultTable.h"

#include <SystemSkips.h>

#include <QtTest>

#include <cmath>

// What the optimiser says of bad input, of a value at the edge, and of hosts that fail.
class tst_optkest_input : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void frequencyIsTheMiddleByDefault();
    void edgeIsWarnedOf();
    void noResonanceIsWarnedOf();
    void checkOnlySolvesNothing();
    void badInput_data();
    void badInput();
    void anyPathWorks_data();
    void anyPathWorks();
    void farmUsesItsHosts();
    void farmThatIsTooSmallIsTold();
    void failingHostIsNamed();
};

void tst_optkest_input::frequencyIsTheMiddleByDefault()
{
    const OptkestRun model(OptkestRun::Engine::Plain);
    QByteArray deck = readFile(model.path("tune.nec")).replace(" AT 300", "");
    deck.replace("280 2", "290 2");
    QVERIFY(!writeFile(model.folder().path(), text("tune.nec"), deck).isEmpty());
    const SuiteResult result = model.run(text("-np 4"));
    QVERIFY2(noticeOf(result, 211).startsWith(text("tuned at 310 MHz")),
             qPrintable(noticeOf(result, 211)));
    QVERIFY(tunedValue(result) < 0.465);
    QVERIFY(tunedValue(result) > 0.45);
}

void tst_optkest_input::edgeIsWarnedOf()
{
    for (const char* options : {"", "-np 2"}) {
        const OptkestRun model(OptkestRun::Engine::Plain);
        const QByteArray deck = readFile(model.path("tune.nec")).replace("FROM 0.4", "FROM 0.48");
        QVERIFY(!writeFile(model.folder().path(), text("tune.nec"), deck).isEmpty());
        const SuiteResult result = model.run(text(options));
        QVERIFY2(result.exitCode == 0,
                 qPrintable(result.bodies(text("error")).join(QLatin1Char(' '))));
        QVERIFY(std::abs(tunedValue(result) - 0.48) < 1e-4);
        const QStringList warnings = result.bodies(text("warning"));
        QCOMPARE(warnings.size(), 2);
        QCOMPARE(warnings.at(0), text("WARNING 3211: the best value of LENGTH lies at the edge of "
                                      "the range to optimise in, from 0.48 to 0.6"));
        QVERIFY2(warnings.at(1).startsWith(
                     text("WARNING 3212: the reactance does not pass through 0 and is 11.")),
                 qPrintable(warnings.at(1)));
    }
}

// A large inductance in series: the reactance has a least value, far from 0.
void tst_optkest_input::noResonanceIsWarnedOf()
{
    const OptkestRun model(OptkestRun::Engine::Plain);
    QByteArray deck = readFile(model.path("tune.nec"));
    deck.replace("XQ", "LD 4 1 11 11 0 5000\nXQ");
    QVERIFY(!writeFile(model.folder().path(), text("tune.nec"), deck).isEmpty());
    const SuiteResult result = model.run();
    QVERIFY2(result.exitCode == 0, qPrintable(result.bodies(text("error")).join(QLatin1Char(' '))));
    QVERIFY(result.hasText(text("-*-warning-*-WARNING 3212: the reactance does not pass through")));
}

void tst_optkest_input::checkOnlySolvesNothing()
{
    OptkestRun model;
    const SuiteResult result = model.run(text("--runkest-options --kest-options --check-only"));
    QVERIFY2(result.exitCode == 0, qPrintable(result.bodies(text("error")).join(QLatin1Char(' '))));
    QCOMPARE(result.lines.last(), text("-*-total-percentage-*-100%"));
    QCOMPARE(model.takeEngineStarts(), 0);
    QCOMPARE(model.folder().entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
             QStringList(text("tune.nec")));
}

void tst_optkest_input::badInput_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<QString>("reason");
    QTest::newRow("missing model") << text("none.nec") << text("ERROR 2011: none.nec: there is no");
    QTest::newRow("directory") << text("folder") << text("ERROR 2012: folder: the model is a dir");
    QTest::newRow("mistakes in the model") << text("mistakes.nec") << text("ERROR 2304: ");
    QTest::newRow("nothing to optimise")
        << text("dipole")
        << text("ERROR 2137: dipole.nec: the model does not say what to optimise,"
                " give a value a name with 'SY LENGTH=0.5' and add a comment such "
                "as 'CM @optimise LENGTH FROM 0.4 TO 0.6 AT 300'");
    QTest::newRow("no voltage source")
        << text("plane") << text("ERROR 2137: plane.nec: a model to");
    QTest::newRow("range without a value between")
        << text("narrow") << text("ERROR 2137: narrow.nec: the range to optimise in is too narrow");
    QTest::newRow("machines file missing")
        << text("tune --machines-file none")
        << text("ERROR 2021: tune.nec: the machines file 'none'");
    QTest::newRow("machines file a directory")
        << text("tune --machines-file folder")
        << text("ERROR 2021: tune.nec: the machines file 'folder'");
    QTest::newRow("machines file with mistakes")
        << text("tune -np 2 --machines-file bad")
        << text("ERROR 2021: tune.nec: the machines file 'bad' has in line 2 'localhost;none'");
    QTest::newRow("unknown option") << text("tune --fast") << text("ERROR 2001: optkest: unknown");
    QTest::newRow("option of runkest misspelt")
        << text("tune --runkest-options --use-gpus 0") << text("ERROR 2001: optkest: unknown");
    QTest::newRow("no folder for the runs")
        << text("blocked")
        << text("ERROR 2612: blocked.nec: the folder 'blocked.optkest' cannot be used, "
                "something else has this name");
    QTest::newRow("folder is a link")
        << text("linked")
        << text("ERROR 2612: linked.nec: the folder 'linked.optkest' cannot be used, "
                "something else has this name");
    QTest::newRow("result cannot be written")
        << text("full") << text("ERROR 2701: full.nec: the result file 'full_opt.csv'");
}

void tst_optkest_input::badInput()
{
    QFETCH(QString, arguments);
    QFETCH(QString, reason);
    OptkestRun model;
    const QString folder = model.folder().path();
    const QByteArray deck = readFile(model.path("tune.nec"));
    QVERIFY(QDir(folder).mkdir(text("folder")));
    QVERIFY(!copyModel(text("mistakes.nec"), folder).isEmpty());
    QVERIFY(!copyModel(text("dipole.nec"), folder).isEmpty());
    QByteArray plane = deck;
    plane.replace("EX 0 1 11 0 1 0", "EX 1 1 1 0 0 0 0 0 0 0");
    QVERIFY(!writeFile(folder, text("plane.nec"), plane).isEmpty());
    QByteArray narrow = deck;
    narrow.replace("0.4 TO 0.6", "0.5 TO 0.5000000000000001");
    QVERIFY(!writeFile(folder, text("narrow.nec"), narrow).isEmpty());
    for (const char* name : {"blocked.nec", "linked.nec", "full.nec"}) {
        QVERIFY(!writeFile(folder, text(name), deck).isEmpty());
    }
    QVERIFY(!writeFile(folder, text("blocked.optkest"), "in the way").isEmpty());
    QVERIFY(QFile::link(model.path("folder"), model.path("linked.optkest")));
    QVERIFY(QDir(folder).mkdir(text("full_opt.csv")));
    QVERIFY(!writeFile(folder, text("bad"), "localhost\nlocalhost:none\n").isEmpty());
    const QStringList before = QDir(folder).entryList();

    const SuiteResult result =
        runSuite(optkestProgram(), arguments.split(QLatin1Char(' ')), folder, model.environment());
    QCOMPARE(result.exitCode, 1);
    QVERIFY2(result.hasText(text("-*-error-*-")), "no error marker");
    QVERIFY2(result.hasText(reason), qPrintable(result.lines.join(QLatin1Char('\n'))));
    QVERIFY(!result.hasText(text("-*-total-percentage-*-100%")));
    QCOMPARE(model.takeEngineStarts(), 0);
    QCOMPARE(QDir(folder).entryList(), before);
    QCOMPARE(QDir(model.path("folder")).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
             QStringList());
}

void tst_optkest_input::anyPathWorks_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("stem");
    const auto add = [](const char* name, const char* stem) {
        QTest::newRow(name) << QString::fromUtf8(name) << QString::fromUtf8(stem);
    };
    add("two words.nec", "two words");
    add("it's $(x);&.nec", "it's $(x);&");
    add("Antenne f\u00fcr \u65e5\u672c.nec", "Antenne f\u00fcr \u65e5\u672c");
    add("no-suffix", "no-suffix");
    add("-np.nec", "-np");
    add("-*-error-*-.nec", "-*-error-*-");
}

void tst_optkest_input::anyPathWorks()
{
    QFETCH(QString, name);
    QFETCH(QString, stem);
    if (name.contains(QLatin1Char('*'))) {
        SKIP_WITHOUT_ALL_CHARACTERS_IN_NAMES();
    }
    const OptkestRun model(OptkestRun::Engine::Plain);
    QVERIFY(QFile::rename(model.path("tune.nec"), model.folder().filePath(name)));
    const SuiteResult result = runSuite(optkestProgram(), {name, text("-np"), text("4")},
                                        model.folder().path(), model.environment());
    QVERIFY2(result.exitCode == 0, qPrintable(result.bodies(text("error")).join(QLatin1Char(' '))));
    for (const char* ending : {"_opt.nec", "_opt.out", "_opt.csv", ".opt.csv", ".optkest"}) {
        QVERIFY2(model.folder().exists(stem + text(ending)), ending);
    }
}

void tst_optkest_input::farmUsesItsHosts()
{
    const OptkestRun model(OptkestRun::Engine::Plain);
    const SpiedInstallation spied = spiedOptkest();
    const QByteArray own = QSysInfo::machineHostName().toUtf8();
    QVERIFY(!writeFile(model.folder().path(), text("farm"),
                       "localhost:1\nnode-1.invalid:2\n" + own + "\n")
                 .isEmpty());
    const SuiteResult result = runSuite(
        spied.program(), words("tune -np all --machines-file farm --runkest-options --use-gpu 0"),
        model.folder().path(), model.environment());
    QVERIFY2(result.exitCode == 0, qPrintable(result.bodies(text("error")).join(QLatin1Char(' '))));
    const QStringList calls = spied.calledWith();
    const QStringList remote =
        calls.filter(text("model.nec|--remote-host|node-1.invalid|--use-gpu|0"));
    QCOMPARE(remote.size(), 2 * roundsOf(result));
    QCOMPARE(calls.filter(text("--remote-host")).size(), remote.size());
    QCOMPARE(calls.size(), 4 * roundsOf(result) + 1);
}

void tst_optkest_input::farmThatIsTooSmallIsTold()
{
    const OptkestRun model(OptkestRun::Engine::Plain);
    QVERIFY(!writeFile(model.folder().path(), text("farm"), "localhost:2\n").isEmpty());
    const SuiteResult result = model.run(text("-np 8 --machines-file farm"));
    QVERIFY2(result.exitCode == 0, qPrintable(result.bodies(text("error")).join(QLatin1Char(' '))));
    QCOMPARE(result.bodies(text("warning")),
             QStringList(text("WARNING 3214: 8 evaluations at once were asked for and the machines "
                              "file has room for 2")));
}

void tst_optkest_input::failingHostIsNamed()
{
    const OptkestRun model(OptkestRun::Engine::Plain);
    StandIn::Plan plan;
    plan.failsWith = text("run_0003");
    plan.error = text("-*-error-*-ERROR 2602: no way to the host");
    const SpiedInstallation spied = spiedOptkest(plan);
    QVERIFY(!writeFile(model.folder().path(), text("farm"), "localhost:2\nnode-1.invalid:2\n")
                 .isEmpty());
    const SuiteResult result = runSuite(spied.program(), words("tune -np 4 --machines-file farm"),
                                        model.folder().path(), model.environment());
    QCOMPARE(result.exitCode, 1);
    const QStringList errors = result.bodies(text("error"));
    QCOMPARE(errors.size(), 1);
    QVERIFY2(errors.first().startsWith(
                 text("ERROR 2611: tune.nec: run 3 on the host 'node-1.invalid' failed, ")),
             qPrintable(errors.first()));
    QVERIFY(errors.first().contains(text("no way to the host")));
    QCOMPARE(model.processCount(), 0);
    QVERIFY(!QFile::exists(model.path("tune_opt.nec")));
    QVERIFY(QFile::exists(model.path("tune.optkest/run_0003/model.nec")));
}

QTEST_GUILESS_MAIN(tst_optkest_input)
#include "tst_optkest_input.moc"
