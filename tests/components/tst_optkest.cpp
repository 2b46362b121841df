// SPDX-License-Identifier: MIT
#include "OptkestParts.h"
#include "OptkestRun.h"

#include "CommandLine.h"
#include "ResultTable.h"

#include <SystemSkips.h>

#include <QThread>
#include <QtTest>

#include <cmath>

using suite::CommandLine;
using suite::OptionGroup;
using suite::ResultTable;

// The optimiser on the real engine: it finds the resonance, and passes on what is meant for the
// solver.
class tst_optkest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void commandLines_data();
    void commandLines();
    void wordsForTheSolverArePassedOn();
    void dipoleIsTuned_data();
    void dipoleIsTuned();
    void allIsEveryProcessorOfThisMachine();
    void onlyTheValueChanges_data();
    void onlyTheValueChanges();
    void resultsAreThoseOfTheTunedModel();
    void tableHoldsEveryEvaluation();
    void progressIsTold();
};

void tst_optkest::commandLines_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("culprit");
    const auto good = [](const char* line) { QTest::newRow(line) << words(line) << QString(); };
    const auto bad = [](const char* line, const char* culprit) {
        QTest::newRow(line) << words(line) << QString::fromLatin1(culprit);
    };
    good("m.nec");
    good("m.nec --run-from-gui --runkest-options --use-gpu 0");
    good("m.nec --run-from-gui --restart 3 --runkest-options --use-gpu 0");
    good("m.nec --run-from-gui -r --runkest-options --use-gpu 0");
    good("m.nec --run-from-gui --restart 3 -r -np 2 --machines-file F --runkest-options"
         " --remote-host h -np all --parallel-authenticate sspi --use-gpu 0"
         " --prekest-options --ignore-errors --print-variables"
         " --adaptkest-options --restart 2 --keep-files");
    good("m.nec --run-from-gui -np all --machines-file F --runkest-options --priority 3"
         " --kest-options --check-only --mtl-circuit-export --prekest-options --ignore-errors"
         " --adaptkest-options --keep-files");
    good("m.nec --run-from-gui -np 2 --runkest-options -np 8 --parallel-authenticate localonly"
         " --use-gpu 0 --adaptkest-options --keep-files");
    good("m.nec --run-from-gui --runkest-options -np all --machines-file F"
         " --parallel-authenticate default --remote-use-mpi");
    good("m.nec -NP 2");
    QTest::newRow("blank words") << QStringList({text("m.nec"), text("--run-from-gui"), QString(),
                                                 text("--runkest-options"), QString(),
                                                 text("--remote-host"), text("h 1  --"), QString()})
                                 << QStringLiteral("--remote-host");
    QTest::newRow("host with words") << QStringList({text("m.nec"), text("--runkest-options"),
                                                     text("--remote-host"), text("h  user")})
                                     << QString();
    bad("m.nec -np", "-np");
    bad("m.nec -np 0", "-np");
    bad("m.nec -np two", "-np");
    bad("m.nec -NP -1", "-NP");
    bad("m.nec --restart", "--restart");
    bad("m.nec --restart last", "--restart");
    bad("m.nec --restart -1", "--restart");
    bad("m.nec --machines-file", "--machines-file");
    bad("m.nec --use-gpu 0", "--use-gpu");
    bad("m.nec --ignore-errors", "--ignore-errors");
    bad("m.nec --prekest-options --ignore-errors", "--prekest-options");
    bad("m.nec --runkest-options --restart 3", "--restart");
    bad("m.nec --runkest-options -r", "-r");
    bad("m.nec --runkest-options --kest-options -r", "-r");
    bad("m.nec other.nec", "other.nec");
    bad("-r", "no model");
}

void tst_optkest::commandLines()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, culprit);
    const CommandLine line(OptionGroup::Optkest, arguments);
    const QString errors = line.errors().join(QLatin1Char('\n'));
    QVERIFY2(errors.isEmpty() == culprit.isEmpty(), qPrintable(errors));
    QVERIFY2(errors.contains(culprit), qPrintable(errors));
}

void tst_optkest::wordsForTheSolverArePassedOn()
{
    const OptkestRun model(OptkestRun::Engine::Plain);
    const SpiedInstallation spied = spiedOptkest();
    const QString options = text("-np 1 --use-gpu 2:0,1 --kest-options --mtl-circuit-export "
                                 "--prekest-options --print-variables "
                                 "--adaptkest-options --restart 2 --keep-files");
    QStringList arguments = words("tune --run-from-gui --runkest-options --remote-host");
    arguments << text("h  user");
    arguments += options.split(QLatin1Char(' '));
    const SuiteResult result =
        runSuite(spied.program(), arguments, model.folder().path(), model.environment());
    QVERIFY2(result.exitCode == 0, qPrintable(result.bodies(text("error")).join(QLatin1Char(' '))));
    const QStringList calls = spied.calledWith();
    QCOMPARE(calls.size(), evaluationsOf(result) + 1);
    for (const QString& call : calls) {
        QVERIFY2(call.endsWith(text("model.nec|--remote-host|h  user|") +
                               QString(options).replace(QLatin1Char(' '), QLatin1Char('|'))),
                 qPrintable(call));
    }
}

void tst_optkest::dipoleIsTuned_data()
{
    QTest::addColumn<QString>("options");
    QTest::addColumn<int>("rounds");
    QTest::newRow("alone") << QString() << 19;
    QTest::newRow("one at a time") << text("-np 1") << 19;
    QTest::newRow("two at once") << text("-np 2") << 13;
    QTest::newRow("two at once, other option") << text("-NP 2") << 13;
    QTest::newRow("two at once, both options") << text("-NP 4 -np 2") << 13;
    QTest::newRow("four at once") << text("-np 4") << 8;
    QTest::newRow("farm of this machine") << text("-np all --machines-file farm") << 8;
    QTest::newRow("part of the farm") << text("-np 2 --machines-file farm") << 13;
    QTest::newRow("farm by default") << text("--machines-file farm") << 8;
}

void tst_optkest::dipoleIsTuned()
{
    QFETCH(QString, options);
    QFETCH(int, rounds);
    if (!options.isEmpty() && options != text("-np 2")) {
        SKIP_UNDER_WINE("a tuning takes half a minute, and two of them are enough");
    }
    const OptkestRun model(OptkestRun::Engine::Plain);
    QVERIFY(!writeFile(model.folder().path(), text("farm"), "localhost:3\n127.0.0.1\n").isEmpty());
    const SuiteResult result = model.run(options);
    QVERIFY2(result.exitCode == 0, qPrintable(result.bodies(text("error")).join(QLatin1Char(' '))));
    QCOMPARE(result.bodies(text("error")) + result.bodies(text("warning")), QStringList());
    QVERIFY2(std::abs(tunedValue(result) - resonantValue) < 1e-4 * resonantValue,
             qPrintable(QString::number(tunedValue(result), 'g', 9)));
    const double reactance =
        noticeOf(result, 212).section(text(" ohm"), 1, 1).section(text(", "), 1).toDouble();
    QVERIFY2(std::abs(reactance) < 0.5, qPrintable(noticeOf(result, 212)));
    QVERIFY2(std::abs(roundsOf(result) - rounds) <= 1, qPrintable(noticeOf(result, 213)));
    QVERIFY(roundsOf(result) > 0);
    QCOMPARE(result.lines.last(), text("-*-total-percentage-*-100%"));
    QVERIFY(result.errorOutput.isEmpty());
    QCOMPARE(model.processCount(), 0);
    QCOMPARE(model.temporary().entryList(QDir::AllEntries | QDir::NoDotAndDotDot), QStringList());
    const QStringList beside = {text("farm"),         text("tune.nec"),     text("tune.opt.csv"),
                                text("tune_opt.csv"), text("tune_opt.nec"), text("tune_opt.out")};
    QCOMPARE(model.folder().entryList(QDir::Files, QDir::Name), beside);
    QVERIFY(!model.runs().isEmpty());
    QVERIFY(!QFile::exists(model.path("tune.optkest/final")));
}

void tst_optkest::allIsEveryProcessorOfThisMachine()
{
    const OptkestRun model(OptkestRun::Engine::Plain);
    const SuiteResult result = model.run(text("-np all"));
    QVERIFY2(result.exitCode == 0, qPrintable(result.bodies(text("error")).join(QLatin1Char(' '))));
    QVERIFY(result.hasText(text(" MHz, %1 at once").arg(QThread::idealThreadCount())));
}

void tst_optkest::onlyTheValueChanges_data()
{
    QTest::addColumn<QByteArray>("from");
    QTest::addColumn<QByteArray>("to");
    QTest::newRow("as installed") << QByteArray() << QByteArray();
    QTest::newRow("line ends of another system") << QByteArray("\n") << QByteArray("\r\n");
    QTest::newRow("several names on the card")
        << QByteArray("SY LENGTH=0.5 ! metres")
        << QByteArray("sy A = 0.5, length =\t0.5 ,B=0.5 ! 0.5 metres");
    QTest::newRow("value behind the frequency")
        << QByteArray("XQ\n") << QByteArray("XQ\nSY LATER=1\n");
    QTest::newRow("text behind the end") << QByteArray("EN\n") << QByteArray("EN\nSY LENGTH=0.5");
    QTest::newRow("frequency card with names")
        << QByteArray("FR 0 21 0 0 280 2") << QByteArray("SY F=280\nFR 0 21 0 0 F 2 ! sweep");
}

void tst_optkest::onlyTheValueChanges()
{
    QFETCH(QByteArray, from);
    QFETCH(QByteArray, to);
    const OptkestRun model(OptkestRun::Engine::Plain);
    QByteArray deck = readFile(model.path("tune.nec"));
    if (!from.isEmpty()) {
        QVERIFY(deck.contains(from));
        deck.replace(from, to);
        QVERIFY(!writeFile(model.folder().path(), text("tune.nec"), deck).isEmpty());
    }
    const SuiteResult result = model.run(text("-np 4"));
    QVERIFY2(result.exitCode == 0, qPrintable(result.bodies(text("error")).join(QLatin1Char(' '))));
    QVERIFY(std::abs(tunedValue(result) - resonantValue) < 1e-4);
    QCOMPARE(readFile(model.path("tune.nec")), deck);
    const QByteArray value =
        result.bodies(text("variable")).constFirst().section(text(" = "), 1).toLatin1();
    const int name = deck.toUpper().indexOf("LENGTH", deck.toUpper().indexOf("\nSY "));
    const int place = deck.indexOf("0.5", name);
    QCOMPARE(readFile(model.path("tune_opt.nec")), deck.replace(place, 3, value));
}

void tst_optkest::resultsAreThoseOfTheTunedModel()
{
    const OptkestRun model(OptkestRun::Engine::Plain);
    QCOMPARE(model.run().exitCode, 0);
    QVERIFY(QFile::copy(model.path("tune_opt.nec"), model.path("again.nec")));
    QCOMPARE(runSuite(runkestProgram(), {text("again")}, model.folder().path()).exitCode, 0);
    for (const char* suffix : {"csv", "out"}) {
        const QByteArray own = readFile(model.path("tune_opt.") + text(suffix));
        QVERIFY(!own.isEmpty());
        QCOMPARE(own, readFile(model.path("again.") + text(suffix)));
    }
    QCOMPARE(readFile(model.path("tune_opt.csv")).count('\n'), 22);
}

void tst_optkest::tableHoldsEveryEvaluation()
{
    const OptkestRun model(OptkestRun::Engine::Plain);
    const SuiteResult result = model.run(text("-np 2"));
    const QList<QByteArray> lines = readFile(model.path("tune.opt.csv")).split('\n');
    QCOMPARE(lines.first(), QByteArray("run,value,resistance_ohm,reactance_ohm,objective_ohm"));
    QVERIFY(lines.last().isEmpty());
    QCOMPARE(lines.size() - 2, evaluationsOf(result));
    QCOMPARE(model.runs().size(), evaluationsOf(result));
    double best = 1000;
    for (int run = 1; run < lines.size() - 1; ++run) {
        const QList<QByteArray> cells = lines.at(run).split(',');
        QCOMPARE(cells.size(), 5);
        QCOMPARE(cells.at(0).toInt(), run);
        QCOMPARE(std::abs(cells.at(3).toDouble()), cells.at(4).toDouble());
        best = qMin(best, cells.at(4).toDouble());
        const QString table = model.path("tune.optkest") + QLatin1Char('/') +
                              model.runs().at(run - 1) + text("/model.csv");
        const ResultTable own = ResultTable::read(table);
        QCOMPARE(own.points.size(), 1);
        QCOMPARE(own.points.first().frequency, 300.0);
        QCOMPARE(own.points.first().impedance()->resistance, cells.at(2).toDouble());
        QCOMPARE(own.points.first().impedance()->reactance, cells.at(3).toDouble());
    }
    QVERIFY(noticeOf(result, 212).contains(QString::number(best)));
}

void tst_optkest::progressIsTold()
{
    const OptkestRun model(OptkestRun::Engine::Plain);
    const SuiteResult result = model.run();
    int before = 0;
    const QStringList totals = result.bodies(text("total-percentage"));
    QVERIFY(totals.size() > 20);
    QCOMPARE(totals.first(), text("5%")); // what the pre-processing is
    for (const QString& total : totals) {
        const int now = total.chopped(1).toInt();
        QVERIFY(now >= before && now <= 100);
        before = now;
    }
    QCOMPARE(totals.count(text("100%")), 1);
    const QStringList files = result.bodies(text("file"));
    QCOMPARE(files, QStringList({model.path("tune_opt.nec"), model.path("tune_opt.out"),
                                 model.path("tune_opt.csv"), model.path("tune.opt.csv")}));
    for (const QString& line : result.lines) {
        const bool isRemark = line.contains(text("-*-notice-*-"));
        QVERIFY2(!isRemark || line.count(QLatin1Char(':')) == 1, qPrintable(line));
    }
}

QTEST_GUILESS_MAIN(tst_optkest)
#include "tst_optkest.moc"
