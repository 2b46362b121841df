// SPDX-License-Identifier: MIT
#include "AdaptkestParts.h"
#include "MarkedRuns.h"
#include "OptionChecks.h"
#include "ResultTable.h"
#include "SuiteRun.h"

#include <SystemSkips.h>

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QtTest>

#include <algorithm>

using suite::ResultTable;

// Options of adaptive runs: which files stay, which paths work, and which words are refused.
class tst_adaptkest_options : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void checkOnlySolvesNothing();
    void keptFilesHoldAllResults();
    void nothingIsKeptUnasked();
    void anyPathWorks_data();
    void anyPathWorks();
    void optionsOfTheFrontEnd_data();
    void optionsOfTheFrontEnd();
    void wrongOptions_data();
    void wrongOptions();
    void helpNamesItsOptions();
};

void tst_adaptkest_options::checkOnlySolvesNothing()
{
    const QTemporaryDir folder;
    QVERIFY(!writeFile(folder.path(), text("m.nec"), adaptiveDipole()).isEmpty());
    const SuiteResult result =
        runSuite(runkestProgram(), words("m --kest-options --check-only"), folder.path());
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files), QStringList(text("m.nec")));
}

void tst_adaptkest_options::keptFilesHoldAllResults()
{
    const QTemporaryDir folder;
    QVERIFY(!copyModel(text("dipole.nec"), folder.path()).isEmpty());
    QCOMPARE(runSuite(program(), words("dipole --keep-files"), folder.path()).exitCode, 0);
    QVector<double> frequencies;
    const QDir kept(folder.filePath(text("dipole.adaptkest")));
    const QStringList names = kept.entryList(QDir::Files, QDir::Name);
    QVERIFY(names.size() > 3);
    QCOMPARE(names.first(), text("analysis_001.json"));
    QCOMPARE(names.last(), text("made_by_adaptkest"));
    const QStringList allButLast = names.mid(0, names.size() - 1);
    for (const QString& name : allButLast) {
        const QJsonObject object = QJsonDocument::fromJson(readFile(kept.filePath(name))).object();
        const QJsonArray points = object.value(text("points")).toArray();
        QVERIFY(!points.isEmpty());
        for (const QJsonValue& point : points) {
            frequencies.append(point.toObject().value(text("frequency_MHz")).toDouble());
        }
    }
    std::sort(frequencies.begin(), frequencies.end());
    const ResultTable table = ResultTable::read(folder.filePath(text("dipole.csv")));
    QCOMPARE(frequencies.size(), table.points.size());
    for (int i = 0; i < frequencies.size(); ++i) {
        QCOMPARE(frequencies.at(i), table.points.at(i).frequency);
    }
}

void tst_adaptkest_options::nothingIsKeptUnasked()
{
    MarkedRuns runs;
    QVERIFY(!copyModel(text("dipole.nec"), runs.folder()).isEmpty());
    QCOMPARE(runSuite(program(), {text("dipole")}, runs.folder(), runs.environment()).exitCode, 0);
    QCOMPARE(runs.entries(), words("dipole.csv dipole.nec dipole.out"));
    QCOMPARE(runs.temporaryEntries(), QStringList());
}

void tst_adaptkest_options::anyPathWorks_data()
{
    addModelPaths();
}

void tst_adaptkest_options::anyPathWorks()
{
    QFETCH(QString, path);
    const QTemporaryDir folder;
    const QString file = writeModelAt(folder.path(), path, adaptiveDipole());
    QVERIFY(!file.isEmpty());
    const SuiteResult result = runSuite(runkestProgram(), {file}, QDir::tempPath(),
                                        environmentWith(text("LC_ALL"), text("C")));
    QCOMPARE(result.exitCode, 0);
    QVERIFY(ResultTable::read(folder.filePath(path + text(".csv"))).points.size() > 10);
}

void tst_adaptkest_options::optionsOfTheFrontEnd_data()
{
    QTest::addColumn<QStringList>("options");
    for (const char* options :
         {"--run-from-gui --use-gpu 0", "--run-from-gui --priority 4 --use-gpu 2:0,1",
          "--run-from-gui --use-gpu --adaptkest-options --keep-files",
          "--run-from-gui -np 2 --parallel-authenticate localonly --use-gpu 0"
          " --kest-options --mtl-circuit-export --prekest-options --ignore-errors"
          " --print-variables --adaptkest-options --keep-files"}) {
        QTest::newRow(options) << words(options);
    }
}

void tst_adaptkest_options::optionsOfTheFrontEnd()
{
    QFETCH(QStringList, options);
    if (options.contains(text("--parallel-authenticate"))) {
        SKIP_WITHOUT_PARALLEL_RUNS();
    }
    const QTemporaryDir folder;
    QVERIFY(!writeFile(folder.path(), text("m.nec"), adaptiveDipole()).isEmpty());
    const SuiteResult result =
        runSuite(runkestProgram(), QStringList(text("m.nec")) + options, folder.path());
    QCOMPARE(result.bodies(text("error")), QStringList());
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(QFile::exists(folder.filePath(text("m.adaptkest"))),
             options.contains(text("--keep-files")));
}

void tst_adaptkest_options::wrongOptions_data()
{
    WrongOptions::addColumns();
    const auto add = &WrongOptions::add;
    add("m --restart", "ERROR 2001: adaptkest: the value is missing of option '--restart'");
    add("m --restart last", "ERROR 2001: adaptkest: option --restart needs a whole number");
    add("m --restart -1", "ERROR 2001: adaptkest: option --restart needs a whole number");
    add("m --restart 0", "ERROR 2721: m.nec: there is no analysis 0 to go on from");
    add("m --restart 1", "ERROR 2721: m.nec: there is no analysis 1 to go on from");
    add("m --restart 99999", "ERROR 2721: m.nec: there is no analysis 1 to go on from");
    add("m -np 0", "ERROR 2001: adaptkest: option -np needs");
    add("m --priority 1", "ERROR 2001: adaptkest: unknown option '--priority'");
    add("m --nonsense", "ERROR 2001: adaptkest: unknown option '--nonsense'");
    add("m --amrkest-options", "ERROR 2001: adaptkest: unknown option");
    add("--keep-files", "ERROR 2001: adaptkest: no model is given");
    add("missing", "ERROR 2011: missing: there is no such model file");
}

void tst_adaptkest_options::wrongOptions()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, error);
    MarkedRuns runs;
    QVERIFY(!writeFile(runs.folder(), text("m.nec"), adaptiveDipole()).isEmpty());
    const SuiteResult result = runSuite(program(), arguments, runs.folder(), runs.environment());
    verifyRefusal(result, error);
    QCOMPARE(runs.entries(), words("m.nec"));
}

void tst_adaptkest_options::helpNamesItsOptions()
{
    const SuiteResult result = runSuite(program(), words("--help"), QDir::tempPath());
    for (const char* option : {"--restart", "--keep-files", "-np", "--runkest-options",
                               "--machines-file", "--prekest-options", "--ignore-errors"}) {
        verifyHelp(result, option);
    }
}

QTEST_GUILESS_MAIN(tst_adaptkest_options)
#include "tst_adaptkest_options.moc"
