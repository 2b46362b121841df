// SPDX-License-Identifier: MIT
#include "OptkestParts.h"
#include "OptkestRun.h"

#include "CommandLine.h"
#include "ResultTable.h"

#include <SystemSkips.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QtTest>

#include <cmath>

// The optimiser goes on where an earlier run ended, and deletes only what is its own.
class tst_optkest_restart : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void restartRunsNothingTwice_data();
    void restartRunsNothingTwice();
    void restartWithMoreAtOnceLearnsFromEarlierRuns();
    void earlierRunOfAnotherPointIsRepeated();
    void restartThatIsNotPossible_data();
    void restartThatIsNotPossible();
    void earlierRunsAreDeleted();
    void deletingKeepsWhatIsTakenOver();
    void deletingTouchesNothingElse();
};

namespace {

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

} // namespace

void tst_optkest_restart::restartRunsNothingTwice_data()
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

void tst_optkest_restart::restartRunsNothingTwice()
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

void tst_optkest_restart::restartWithMoreAtOnceLearnsFromEarlierRuns()
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

void tst_optkest_restart::earlierRunOfAnotherPointIsRepeated()
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

void tst_optkest_restart::restartThatIsNotPossible_data()
{
    QTest::addColumn<QString>("change");
    QTest::addColumn<QString>("reason");
    QTest::newRow("beyond the last run") << QString() << text("the last earlier run is 19");
    QTest::newRow("no earlier run") << text("none") << text("there are no earlier runs");
    QTest::newRow("garbage") << text("{]") << text("the file 'optkest.json' is damaged");
    QTest::newRow("empty") << text("") + QLatin1Char(' ') << text("is damaged");
    QTest::newRow("other contents")
        << text(R"({"model": 7, "evaluations": [1, {}]})") << text("is damaged");
    for (const char* change : {"value=7", "value=0.1", "run=3", "run=0", "reactance=\"x\""}) {
        QTest::newRow(change) << text("evaluation ") + text(change) << text("is damaged");
    }
    QTest::newRow("other model") << text("model") << text("of another model, range or frequency");
}

void tst_optkest_restart::restartThatIsNotPossible()
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

void tst_optkest_restart::earlierRunsAreDeleted()
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

void tst_optkest_restart::deletingKeepsWhatIsTakenOver()
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
void tst_optkest_restart::deletingTouchesNothingElse()
{
    SKIP_WITHOUT_SYMBOLIC_LINKS();
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

QTEST_GUILESS_MAIN(tst_optkest_restart)
#include "tst_optkest_restart.moc"
