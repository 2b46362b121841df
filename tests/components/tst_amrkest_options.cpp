// SPDX-License-Identifier: MIT
#include "AmrkestParts.h"
#include "MarkedRuns.h"
#include "OptionChecks.h"
#include "ResultTable.h"
#include "SpiedInstallation.h"
#include "SuiteRun.h"

#include <SystemSkips.h>

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QtTest>

using suite::ResultTable;

// Options of refinements: what runkest is given, which paths work, and which words are refused.
class tst_amrkest_options : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void runkestOptionsArePassedOn_data();
    void runkestOptionsArePassedOn();
    void machinesFileThatIsMissingFailsTheFirstIteration();
    void errorsAreIgnoredAllTheWay();
    void adaptiveModelIsSampledAdaptively();
    void checkOnlySolvesNothing();
    void anyPathWorks_data();
    void anyPathWorks();
    void optionsOfTheFrontEnd_data();
    void optionsOfTheFrontEnd();
    void wrongOptions_data();
    void wrongOptions();
    void helpNamesItsOptions();
};

void tst_amrkest_options::runkestOptionsArePassedOn_data()
{
    QTest::addColumn<QString>("options");
    QTest::addColumn<QString>("expected");
    QTest::newRow("none") << QString() << QString();
    QTest::newRow("of the solver") << text("--runkest-options --priority 4 -np 1 --use-gpu 2:0,1"
                                           " --kest-options --mtl-circuit-export")
                                   << text("|--priority|4|-np|1|--use-gpu|2:0,1"
                                           "|--kest-options|--mtl-circuit-export");
    QTest::newRow("of the pre-processor")
        << text("--runkest-options --use-gpu 0 --prekest-options --ignore-errors --print-variables")
        << text("|--use-gpu|0|--prekest-options|--ignore-errors");
    QTest::newRow("of this program")
        << text("--run-from-gui --error-threshold low --runkest-options --use-gpu 0")
        << text("|--use-gpu|0");
}

// Each iteration and the final solution are runs of runkest; what is for amrkest's own
// pre-processing stays here.
void tst_amrkest_options::runkestOptionsArePassedOn()
{
    QFETCH(QString, options);
    QFETCH(QString, expected);
    const QTemporaryDir folder;
    const SpiedInstallation spied(program());
    QVERIFY(!writeFile(folder.path(), text("m.nec"), coarseDipole()).isEmpty());
    const SuiteResult result = runSuite(
        spied.program(), QStringList(text("m")) + words(qPrintable(options)), folder.path());
    QCOMPARE(result.exitCode, 0);
    QStringList wanted;
    const int iterations = readIterations(folder.filePath(text("m.amr.csv"))).size();
    QVERIFY(iterations >= 2);
    for (int number = 1; number <= iterations; ++number) {
        wanted.append(folder.filePath(text("m.amrkest/iteration_0%1/m.nec").arg(number)) +
                      expected);
    }
    wanted.append(folder.filePath(text("m.amrkest/final/m_amr.nec")) + expected);
    QCOMPARE(spied.calledWith(), wanted);
    // The words mean something to runkest: the final run tells how many engines it may start.
    QCOMPARE(result.hasText(text("Solving 5 frequencies, 1 at once")),
             options.contains(text("-np 1")));
    QCOMPARE(result.bodies(text("variable")).contains(text("segments = 5")),
             options.contains(text("--print-variables")));
}

void tst_amrkest_options::machinesFileThatIsMissingFailsTheFirstIteration()
{
    const QTemporaryDir folder;
    const SuiteResult result = refine(folder, "--runkest-options -np 2 --machines-file /nowhere/m"
                                              " --parallel-authenticate sspi");
    QCOMPARE(result.exitCode, 1);
    QCOMPARE(result.bodies(text("error")),
             QStringList(text("ERROR 2823: m.nec: iteration 1 failed, ERROR 2021; m.nec; the "
                              "machines file '/nowhere/m' does not exist")));
    QVERIFY(!QFile::exists(folder.filePath(text("m_amr.nec"))));
}

void tst_amrkest_options::errorsAreIgnoredAllTheWay()
{
    const QTemporaryDir folder;
    const QByteArray deck = coarseDipole().replace("XQ", "GN 0 0 0 0 0.5 0.01\nXQ");
    QCOMPARE(refine(folder, "", deck).exitCode, 1);
    QVERIFY(!QFile::exists(folder.filePath(text("m_amr.nec"))));
    const SuiteResult result = refine(folder, "--prekest-options --ignore-errors", deck);
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(result.bodies(text("error")).size(), 1);
    QVERIFY(QFile::exists(folder.filePath(text("m_amr.csv"))));
}

void tst_amrkest_options::adaptiveModelIsSampledAdaptively()
{
    const QTemporaryDir folder;
    const QByteArray deck = coarseDipole()
                                .replace("CE\n", "CM @adapt\nCE\n")
                                .replace("280 5", "250 2")
                                .replace("FR 0 5", "FR 0 51");
    const SuiteResult result = refine(folder, "--keep-files", deck);
    QCOMPARE(result.exitCode, 0);
    QVERIFY(result.hasText(text("NOTE 221: adaptive sampling took ")));
    const int points = ResultTable::read(folder.filePath(text("m_amr.csv"))).points.size();
    QVERIFY(points > 10 && points < 30);
}

void tst_amrkest_options::checkOnlySolvesNothing()
{
    const QTemporaryDir folder;
    const SuiteResult result = refine(folder, "--runkest-options --kest-options --check-only");
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(result.lines.last(), text("-*-total-percentage-*-100%"));
    QCOMPARE(QDir(folder.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
             words("m.nec"));
}

void tst_amrkest_options::anyPathWorks_data()
{
    addModelPaths();
}

void tst_amrkest_options::anyPathWorks()
{
    QFETCH(QString, path);
    const QTemporaryDir folder;
    const QString file = writeModelAt(folder.path(), path, coarseDipole());
    QVERIFY(!file.isEmpty());
    const SuiteResult result =
        runSuite(program(), {file}, QDir::tempPath(), environmentWith(text("LC_ALL"), text("C")));
    QCOMPARE(result.bodies(text("error")), QStringList());
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(ResultTable::read(folder.filePath(path + text("_amr.csv"))).points.size(), 5);
    QCOMPARE(QFileInfo(file).dir().entryList(QDir::AllEntries | QDir::NoDotAndDotDot).size(), 5);
}

void tst_amrkest_options::optionsOfTheFrontEnd_data()
{
    QTest::addColumn<QStringList>("options");
    for (const char* options :
         {"--run-from-gui --runkest-options --use-gpu 0",
          "--run-from-gui --max-iterations 3 --frequency 300 --error-threshold high --keep-files"
          " --skip-final-solve --runkest-options --priority 0 --use-gpu 0",
          "--run-from-gui --error-threshold low --runkest-options --priority 1"
          " --parallel-authenticate sspi --use-gpu :0,1",
          "--run-from-gui --runkest-options --use-gpu --kest-options --mtl-circuit-export"}) {
        QTest::newRow(options) << words(options);
    }
    QTest::newRow("blank words") << QStringList(
        {text("--run-from-gui"), QString(), text("--runkest-options"), QString()});
}

void tst_amrkest_options::optionsOfTheFrontEnd()
{
    QFETCH(QStringList, options);
    if (options.contains(text("--parallel-authenticate"))) {
        SKIP_WITHOUT_PARALLEL_RUNS();
    }
    const QTemporaryDir folder;
    QVERIFY(!writeFile(folder.path(), text("m.nec"), coarseDipole()).isEmpty());
    const SuiteResult result =
        runSuite(program(), QStringList(text("m.nec")) + options, folder.path());
    QCOMPARE(result.bodies(text("error")), QStringList());
    QCOMPARE(result.exitCode, 0);
    QVERIFY(QFile::exists(folder.filePath(text("m_amr.nec"))));
    QCOMPARE(QFile::exists(folder.filePath(text("m.amrkest"))),
             options.contains(text("--keep-files")));
    QCOMPARE(QFile::exists(folder.filePath(text("m_amr.csv"))),
             !options.contains(text("--skip-final-solve")));
}

void tst_amrkest_options::wrongOptions_data()
{
    WrongOptions::addColumns();
    const auto add = &WrongOptions::add;
    add("m --max-iterations 0",
        "ERROR 2001: amrkest: option --max-iterations needs a whole number");
    add("m --max-iterations -1", "ERROR 2001: amrkest: option --max-iterations needs");
    add("m --max-iterations many", "ERROR 2001: amrkest: option --max-iterations needs");
    add("m --frequency", "ERROR 2001: amrkest: the value is missing of option '--frequency'");
    for (const char* value : {"0", "-5", "inf", "nan", "1e16", "300,5", "mid"}) {
        add(qPrintable(text("m --frequency ") + text(value)),
            "ERROR 2001: amrkest: option --frequency needs a number greater than 0");
    }
    add("m --frequency 300 MHz", "ERROR 2001: amrkest: unexpected argument 'MHz'");
    add("m --error-threshold 0.1",
        "ERROR 2001: amrkest: option --error-threshold needs one of the words high normal low");
    add("m --restart 1", "ERROR 2001: amrkest: unknown option '--restart'");
    add("m -np 2", "ERROR 2001: amrkest: unknown option '-np'");
    add("m --runkest-options --frequency 300", "ERROR 2001: amrkest: unknown option '--frequency'");
    add("--keep-files", "ERROR 2001: amrkest: no model is given");
    add("missing", "ERROR 2011: missing: there is no such model file");
    add(".", "ERROR 2012: ");
    add("patch", "ERROR 2821: card SP cannot be refined, patches have no segments");
    add("wave", "ERROR 2822: wave.nec: the refinement compares input impedances");
}

void tst_amrkest_options::wrongOptions()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, error);
    MarkedRuns runs;
    const QByteArray deck = coarseDipole();
    writeFile(runs.folder(), text("m.nec"), deck);
    writeFile(runs.folder(), text("patch.nec"),
              QByteArray(deck).replace("GE 0", "SP 0 0 1 1 1 0 0 0.1\nGE 0"));
    writeFile(runs.folder(), text("wave.nec"),
              QByteArray(deck).replace("EX 0 1 3 0 1 0", "EX 1 1 1 0 0 0 0 0 0 0"));
    const SuiteResult result = runSuite(program(), arguments, runs.folder(), runs.environment());
    verifyRefusal(result, error);
    QCOMPARE(runs.entries(), words("m.nec patch.nec wave.nec"));
}

void tst_amrkest_options::helpNamesItsOptions()
{
    const SuiteResult result = runSuite(program(), words("--help"), QDir::tempPath());
    for (const char* option :
         {"--max-iterations", "--frequency", "--error-threshold", "--keep-files",
          "--skip-final-solve", "--runkest-options", "--priority", "--ignore-errors"}) {
        verifyHelp(result, option);
    }
}

QTEST_GUILESS_MAIN(tst_amrkest_options)
#include "tst_amrkest_options.moc"
