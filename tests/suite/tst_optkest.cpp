#include "OptkestRun.h"

#include "CommandLine.h"
#include "ResultTable.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QThread>
#include <QtTest>

#include <cmath>

using suite::CommandLine;
using suite::OptionGroup;
using suite::ResultTable;

// The optimiser on the real engine: it finds the resonance, alone and on a farm, goes on where an
// earlier run ended, and passes on what is meant for the solver.
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
    void restartRunsNothingTwice_data();
    void restartRunsNothingTwice();
    void restartWithMoreAtOnceLearnsFromEarlierRuns();
    void earlierRunOfAnotherPointIsRepeated();
    void restartThatIsNotPossible_data();
    void restartThatIsNotPossible();
    void earlierRunsAreDeleted();
    void deletingKeepsWhatIsTakenOver();
    void deletingTouchesNothingElse();
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

namespace {

QString text(const char* latin1)
{
    return QString::fromLatin1(latin1);
}

QStringList words(const char* line)
{
    return QString::fromLatin1(line).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

// Where a search without any rounding would end, by the engine itself.
constexpr double resonantValue = 0.47412;

int evaluationsOf(const SuiteResult& result)
{
    return noticeOf(result, 213).section(QLatin1Char(' '), 3, 3).toInt();
}

int roundsOf(const SuiteResult& result)
{
    return noticeOf(result, 213).section(QLatin1Char(' '), 5, 5).toInt();
}

// Changes what the saved state says of a run; the change is "key=value" with a value of JSON.
bool changeEvaluation(const OptkestRun& model, int index, const QString& change)
{
    const QString path = model.path("tune.optkest/optkest.json");
    QJsonObject state = QJsonDocument::fromJson(readFile(path)).object();
    QJsonArray evaluations = state.value(text("evaluations")).toArray();
    QJsonObject evaluation = evaluations.at(index).toObject();
    const QString value = change.section(QLatin1Char('='), 1);
    const QJsonArray parsed = QJsonDocument::fromJson('[' + value.toUtf8() + ']').array();
    evaluation.insert(change.section(QLatin1Char('='), 0, 0), parsed.first());
    evaluations.replace(index, evaluation);
    state.insert(text("evaluations"), evaluations);
    return !writeFile(model.path("tune.optkest"), text("optkest.json"),
                      QJsonDocument(state).toJson())
                .isEmpty();
}

// A folder with optkest and a runkest that writes down how it is called before it works.
class SpiedInstallation
{
public:
    explicit SpiedInstallation(const QByteArray& work)
    {
        QDir(m_folder.path()).mkdir(QStringLiteral("bin"));
        QFile::copy(optkestProgram(), program());
        const QByteArray script = "#!/bin/sh\necho \"$*\" >> '" + calls().toUtf8() + "'\n" + work +
                                  "\nexec '" + runkestProgram().toUtf8() + "' \"$1\"\n";
        const QString path =
            writeFile(m_folder.path() + QStringLiteral("/bin"), QStringLiteral("runkest"), script);
        QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }

    QString program() const { return m_folder.filePath(QStringLiteral("bin/optkest")); }
    QStringList calledWith() const
    {
        return QString::fromUtf8(readFile(calls())).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    }

private:
    QString calls() const { return m_folder.filePath(QStringLiteral("calls")); }

    QTemporaryDir m_folder;
};

} // namespace

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
    const OptkestRun model;
    const SpiedInstallation spied("");
    const QString options = text("-np 1 --use-gpu 2:0,1 --kest-options --mtl-circuit-export "
                                 "--prekest-options --print-variables "
                                 "--adaptkest-options --restart 2 --keep-files");
    QStringList arguments = words("tune --run-from-gui --runkest-options --remote-host");
    arguments << text("h  user");
    arguments += options.split(QLatin1Char(' '));
    const SuiteResult result =
        runSuite(spied.program(), arguments, model.folder().path(), model.environment());
    QCOMPARE(result.exitCode, 0);
    const QStringList calls = spied.calledWith();
    QCOMPARE(calls.size(), evaluationsOf(result) + 1);
    for (const QString& call : calls) {
        QVERIFY2(call.endsWith(text("model.nec --remote-host h  user ") + options),
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
    const OptkestRun model;
    QVERIFY(!writeFile(model.folder().path(), text("farm"), "localhost:3\n127.0.0.1\n").isEmpty());
    const SuiteResult result = model.run(options);
    QCOMPARE(result.exitCode, 0);
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
    const OptkestRun model;
    const SuiteResult result = model.run(text("-np all"));
    QCOMPARE(result.exitCode, 0);
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
    const OptkestRun model;
    QByteArray deck = readFile(model.path("tune.nec"));
    if (!from.isEmpty()) {
        QVERIFY(deck.contains(from));
        deck.replace(from, to);
        QVERIFY(!writeFile(model.folder().path(), text("tune.nec"), deck).isEmpty());
    }
    const SuiteResult result = model.run(text("-np 4"));
    QCOMPARE(result.exitCode, 0);
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
    const OptkestRun model;
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
    const OptkestRun model;
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
    const OptkestRun model;
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

void tst_optkest::restartRunsNothingTwice_data()
{
    QTest::addColumn<QString>("options");
    QTest::addColumn<int>("from");
    QTest::newRow("alone, from the first") << QString() << 1;
    QTest::newRow("alone, from the middle") << QString() << 10;
    QTest::newRow("two at once, after a round") << text(" -np 2") << 12;
    QTest::newRow("four at once, within a round") << text(" -np 4") << 10;
    QTest::newRow("from the last") << QString() << 19;
    QTest::newRow("from none") << QString() << 0;
}

void tst_optkest::restartRunsNothingTwice()
{
    QFETCH(QString, options);
    QFETCH(int, from);
    OptkestRun model;
    const SuiteResult whole = model.run(options);
    QCOMPARE(whole.exitCode, 0);
    const int evaluations = evaluationsOf(whole);
    const int frequencies = 21;
    QCOMPARE(model.takeEngineStarts(), evaluations + frequencies);
    QMap<QString, QByteArray> results;
    for (const char* name : {"tune_opt.nec", "tune_opt.out", "tune_opt.csv", "tune.opt.csv"}) {
        results.insert(text(name), readFile(model.path(name)));
        QVERIFY(QFile::remove(model.path(name)));
    }
    const SuiteResult again = model.run(QStringLiteral("--restart %1").arg(from) + options);
    QCOMPARE(again.exitCode, 0);
    QCOMPARE(model.takeEngineStarts(), evaluations - from + frequencies);
    QCOMPARE(evaluationsOf(again), evaluations);
    QVERIFY2(noticeOf(again, 213).contains(QStringLiteral("%1 of them taken over").arg(from)),
             qPrintable(noticeOf(again, 213)));
    for (auto file = results.begin(); file != results.end(); ++file) {
        QCOMPARE(readFile(model.folder().filePath(file.key())), file.value());
    }
}

void tst_optkest::restartWithMoreAtOnceLearnsFromEarlierRuns()
{
    OptkestRun model;
    QCOMPARE(model.run().exitCode, 0);
    model.takeEngineStarts();
    const SuiteResult fresh = OptkestRun().run(text("-np 4"));
    const SuiteResult again = model.run(text("--restart 9 -np 4"));
    QCOMPARE(again.exitCode, 0);
    QVERIFY(std::abs(tunedValue(again) - resonantValue) < 1e-4 * resonantValue);
    QVERIFY(noticeOf(again, 213).contains(text("9 of them taken over")));
    QCOMPARE(model.takeEngineStarts(), evaluationsOf(again) - 9 + 21);
    QVERIFY(roundsOf(again) < roundsOf(fresh));

    const int last = evaluationsOf(again);
    const SuiteResult third = model.run(QStringLiteral("-np 4 --restart %1").arg(last - 4));
    QCOMPARE(third.exitCode, 0);
    QVERIFY(noticeOf(third, 213).contains(QStringLiteral("%1 of them taken over").arg(last - 4)));
    QCOMPARE(model.takeEngineStarts(), evaluationsOf(third) - (last - 4) + 21);
    QCOMPARE(tunedValue(third), tunedValue(again));
}

void tst_optkest::earlierRunOfAnotherPointIsRepeated()
{
    OptkestRun model;
    const SuiteResult first = model.run();
    QCOMPARE(first.exitCode, 0);
    QVERIFY(changeEvaluation(model, 6, text("value=0.50123")));
    model.takeEngineStarts();
    const SuiteResult again = model.run(text("--restart 19"));
    QCOMPARE(again.exitCode, 0);
    QVERIFY2(noticeOf(again, 213).contains(text("18 of them taken over")),
             qPrintable(noticeOf(again, 213)));
    QCOMPARE(model.takeEngineStarts(), 1 + 21);
    QCOMPARE(tunedValue(again), tunedValue(first));
}

void tst_optkest::restartThatIsNotPossible_data()
{
    QTest::addColumn<QString>("change");
    QTest::addColumn<QString>("reason");
    QTest::newRow("beyond the last run") << QString() << text("the last earlier run is 19");
    QTest::newRow("no earlier run") << text("none") << text("there are no earlier runs");
    QTest::newRow("garbage") << text("{]") << text("the file 'optkest.json' is damaged");
    QTest::newRow("empty") << text("") + QLatin1Char(' ') << text("is damaged");
    QTest::newRow("other contents")
        << text("{\"model\": 7, \"evaluations\": [1, {}]}") << text("is damaged");
    for (const char* change : {"value=7", "value=0.1", "run=3", "run=0", "reactance=\"x\""}) {
        QTest::newRow(change) << text("evaluation ") + text(change) << text("is damaged");
    }
    QTest::newRow("other model") << text("model") << text("of another model, range or frequency");
}

void tst_optkest::restartThatIsNotPossible()
{
    QFETCH(QString, change);
    QFETCH(QString, reason);
    OptkestRun model;
    QCOMPARE(model.run().exitCode, 0);
    const QString folder = model.path("tune.optkest");
    if (change == text("model")) {
        QByteArray deck = readFile(model.path("tune.nec"));
        QVERIFY(!writeFile(model.folder().path(), text("tune.nec"), deck.replace("0.6", "0.61"))
                     .isEmpty());
    } else if (change == text("none")) {
        QVERIFY(QDir(folder).removeRecursively());
    } else if (change.startsWith(text("evaluation "))) {
        QVERIFY(changeEvaluation(model, 6, change.section(QLatin1Char(' '), 1)));
    } else if (!change.isEmpty()) {
        QVERIFY(!writeFile(folder, text("optkest.json"), change.toUtf8()).isEmpty());
    }
    const QStringList runs = model.runs();
    const QByteArray result = readFile(model.path("tune_opt.out"));
    model.takeEngineStarts();
    const SuiteResult again = model.run(text("-r --restart 20"));
    QCOMPARE(again.exitCode, 1);
    const QStringList errors = again.bodies(text("error"));
    QCOMPARE(errors.size(), 1);
    QVERIFY2(
        errors.first().startsWith(text("ERROR 2613: tune.nec: there is no going on from run 20, ")),
        qPrintable(errors.first()));
    QVERIFY2(errors.first().contains(reason), qPrintable(errors.first()));
    QCOMPARE(model.takeEngineStarts(), 0);
    QCOMPARE(model.runs(), runs);
    QCOMPARE(readFile(model.path("tune_opt.out")), result);
}

void tst_optkest::earlierRunsAreDeleted()
{
    const OptkestRun model;
    QCOMPARE(model.run(text("-np 4")).exitCode, 0);
    QCOMPARE(model.runs().size(), 32);
    QCOMPARE(model.run().exitCode, 0);
    QCOMPARE(model.runs().size(), 32);
    const SuiteResult result = model.run(text("-r"));
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(model.runs().size(), evaluationsOf(result));
}

void tst_optkest::deletingKeepsWhatIsTakenOver()
{
    OptkestRun model;
    const SuiteResult whole = model.run();
    model.takeEngineStarts();
    const SuiteResult again = model.run(text("-r --restart 12"));
    QCOMPARE(again.exitCode, 0);
    QCOMPARE(model.takeEngineStarts(), evaluationsOf(whole) - 12 + 21);
    QCOMPARE(tunedValue(again), tunedValue(whole));
    QCOMPARE(model.runs().size(), evaluationsOf(whole));
}

// Other people's files stay, and so does what links lead to.
void tst_optkest::deletingTouchesNothingElse()
{
    const OptkestRun model;
    QCOMPARE(model.run().exitCode, 0);
    const QTemporaryDir elsewhere;
    const QString folder = model.path("tune.optkest");
    for (const char* name : {"model.nec", "model.out", "precious"}) {
        QVERIFY(!writeFile(elsewhere.path(), text(name), "precious").isEmpty());
    }
    QVERIFY(!writeFile(folder, text("notes.txt"), "precious").isEmpty());
    QVERIFY(!writeFile(folder + text("/run_0003"), text("notes.txt"), "precious").isEmpty());
    QVERIFY(QFile::link(elsewhere.path(), folder + text("/run_0099")));
    const QString linked = folder + text("/run_0004/model.out");
    QVERIFY(QFile::remove(linked));
    QVERIFY(QFile::link(elsewhere.filePath(text("precious")), linked));
    QCOMPARE(model.run(text("-r")).exitCode, 0);
    for (const char* name : {"model.nec", "model.out", "precious"}) {
        QCOMPARE(readFile(elsewhere.filePath(text(name))), QByteArray("precious"));
    }
    QCOMPARE(readFile(folder + text("/notes.txt")), QByteArray("precious"));
    QCOMPARE(readFile(folder + text("/run_0003/notes.txt")), QByteArray("precious"));
    QVERIFY(QFileInfo(folder + text("/run_0099")).isSymLink());
    QVERIFY(!QFileInfo(linked).isSymLink());
    QVERIFY(readFile(linked).contains("INPUT PARAMETERS"));
}

void tst_optkest::frequencyIsTheMiddleByDefault()
{
    const OptkestRun model;
    QByteArray deck = readFile(model.path("tune.nec")).replace(" AT 300", "");
    deck.replace("280 2", "290 2");
    QVERIFY(!writeFile(model.folder().path(), text("tune.nec"), deck).isEmpty());
    const SuiteResult result = model.run(text("-np 4"));
    QVERIFY2(noticeOf(result, 211).startsWith(text("tuned at 310 MHz")),
             qPrintable(noticeOf(result, 211)));
    QVERIFY(tunedValue(result) < 0.465);
    QVERIFY(tunedValue(result) > 0.45);
}

void tst_optkest::edgeIsWarnedOf()
{
    for (const char* options : {"", "-np 2"}) {
        const OptkestRun model;
        const QByteArray deck = readFile(model.path("tune.nec")).replace("FROM 0.4", "FROM 0.48");
        QVERIFY(!writeFile(model.folder().path(), text("tune.nec"), deck).isEmpty());
        const SuiteResult result = model.run(text(options));
        QCOMPARE(result.exitCode, 0);
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
void tst_optkest::noResonanceIsWarnedOf()
{
    const OptkestRun model;
    QByteArray deck = readFile(model.path("tune.nec"));
    deck.replace("XQ", "LD 4 1 11 11 0 5000\nXQ");
    QVERIFY(!writeFile(model.folder().path(), text("tune.nec"), deck).isEmpty());
    const SuiteResult result = model.run();
    QCOMPARE(result.exitCode, 0);
    QVERIFY(result.hasText(text("-*-warning-*-WARNING 3212: the reactance does not pass through")));
}

void tst_optkest::checkOnlySolvesNothing()
{
    OptkestRun model;
    const SuiteResult result = model.run(text("--runkest-options --kest-options --check-only"));
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(result.lines.last(), text("-*-total-percentage-*-100%"));
    QCOMPARE(model.takeEngineStarts(), 0);
    QCOMPARE(model.folder().entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
             QStringList(text("tune.nec")));
}

void tst_optkest::badInput_data()
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
        << text("ERROR 2612: blocked.nec: the folder 'blocked.optkest' for the runs "
                "cannot be made");
    QTest::newRow("folder is a link")
        << text("linked")
        << text("ERROR 2612: linked.nec: the folder 'linked.optkest' for the runs "
                "is a link");
    QTest::newRow("result cannot be written")
        << text("full") << text("ERROR 2701: full.nec: the result file 'full_opt.csv'");
}

void tst_optkest::badInput()
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

void tst_optkest::anyPathWorks_data()
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

void tst_optkest::anyPathWorks()
{
    QFETCH(QString, name);
    QFETCH(QString, stem);
    const OptkestRun model;
    QVERIFY(QFile::rename(model.path("tune.nec"), model.folder().filePath(name)));
    const SuiteResult result = runSuite(optkestProgram(), {name, text("-np"), text("4")},
                                        model.folder().path(), model.environment());
    QCOMPARE(result.exitCode, 0);
    for (const char* ending : {"_opt.nec", "_opt.out", "_opt.csv", ".opt.csv", ".optkest"}) {
        QVERIFY2(model.folder().exists(stem + text(ending)), ending);
    }
}

void tst_optkest::farmUsesItsHosts()
{
    const OptkestRun model;
    const SpiedInstallation spied("");
    const QByteArray own = QSysInfo::machineHostName().toUtf8();
    QVERIFY(!writeFile(model.folder().path(), text("farm"),
                       "localhost:1\nnode-1.invalid:2\n" + own + "\n")
                 .isEmpty());
    const SuiteResult result = runSuite(
        spied.program(), words("tune -np all --machines-file farm --runkest-options --use-gpu 0"),
        model.folder().path(), model.environment());
    QCOMPARE(result.exitCode, 0);
    const QStringList calls = spied.calledWith();
    const QStringList remote =
        calls.filter(text("model.nec --remote-host node-1.invalid --use-gpu 0"));
    QCOMPARE(remote.size(), 2 * roundsOf(result));
    QCOMPARE(calls.filter(text("--remote-host")).size(), remote.size());
    QCOMPARE(calls.size(), 4 * roundsOf(result) + 1);
}

void tst_optkest::farmThatIsTooSmallIsTold()
{
    const OptkestRun model;
    QVERIFY(!writeFile(model.folder().path(), text("farm"), "localhost:2\n").isEmpty());
    const SuiteResult result = model.run(text("-np 8 --machines-file farm"));
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(result.bodies(text("warning")),
             QStringList(text("WARNING 3214: 8 evaluations at once were asked for and the machines "
                              "file has room for 2")));
}

void tst_optkest::failingHostIsNamed()
{
    const OptkestRun model;
    const SpiedInstallation spied("case \"$*\" in *run_0003*) echo '-*-error-*-ERROR 2602: no way "
                                  "to the host'; exit 1;; esac");
    QVERIFY(!writeFile(model.folder().path(), text("farm"), "localhost:2\nnode-1.invalid:2\n")
                 .isEmpty());
    const SuiteResult result = runSuite(spied.program(), words("tune -np 4 --machines-file farm"),
                                        model.folder().path(), model.environment());
    QCOMPARE(result.exitCode, 1);
    const QStringList errors = result.bodies(text("error"));
    QCOMPARE(errors.size(), 1);
    QVERIFY2(
        errors.first().startsWith(text("ERROR 2611: tune.nec: run 3 on node-1.invalid failed, ")),
        qPrintable(errors.first()));
    QVERIFY(errors.first().contains(text("no way to the host")));
    QCOMPARE(model.processCount(), 0);
    QVERIFY(!QFile::exists(model.path("tune_opt.nec")));
    QVERIFY(QFile::exists(model.path("tune.optkest/run_0003/model.nec")));
}

QTEST_GUILESS_MAIN(tst_optkest)
#include "tst_optkest.moc"
