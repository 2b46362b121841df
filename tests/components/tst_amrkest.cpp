// SPDX-License-Identifier: MIT
#include "AmrkestParts.h"
#include "MarkedRuns.h"
#include "Preprocessor.h"
#include "ResultTable.h"
#include "SuiteRun.h"

#include <QDir>
#include <QTemporaryDir>
#include <QtTest>

using suite::ResultTable;

// Refinements that go well: they converge within their limits, and keep the results of the last
// model.
class tst_amrkest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void refinementConverges_data();
    void refinementConverges();
    void thresholdsAreOrdered();
    void refinedModelIsTheLastIterations();
    void finalResultsAreAPlainRuns();
    void finalSolveCanBeSkipped();
    void frequencyIsTheMiddleUnlessGiven_data();
    void frequencyIsTheMiddleUnlessGiven();
    void tooFewIterationsAreWarnedOf_data();
    void tooFewIterationsAreWarnedOf();
    void limitsStopTheRefinement_data();
    void limitsStopTheRefinement();
    void progressOnlyGrows_data();
    void progressOnlyGrows();
    void keptFilesAreTheIterations();
    void nothingIsKeptUnasked();
};

namespace {

// Without those about the model: the segments are too long before they are divided.
QStringList ownWarnings(const SuiteResult& result)
{
    return result.bodies(text("warning")).filter(text("the refinement "));
}

} // namespace

void tst_amrkest::refinementConverges_data()
{
    QTest::addColumn<QString>("word");
    QTest::addColumn<double>("threshold");
    QTest::newRow("high") << text("--error-threshold high") << 0.05;
    QTest::newRow("normal") << text("--error-threshold normal") << 0.02;
    QTest::newRow("unsaid") << QString() << 0.02;
    QTest::newRow("low") << text("--error-threshold low") << 0.005;
}

// Each iteration's impedance is what a plain run of a wire with so many segments gives; the last
// change is below the threshold and no earlier one.
void tst_amrkest::refinementConverges()
{
    QFETCH(QString, word);
    QFETCH(double, threshold);
    const QTemporaryDir folder;
    const SuiteResult result = refine(folder, qPrintable(text("--max-iterations 12 ") + word));
    QCOMPARE(result.bodies(text("error")), QStringList());
    QCOMPARE(result.exitCode, 0);
    const QVector<Iteration> table = readIterations(folder.filePath(text("m.amr.csv")));
    QVERIFY(table.size() >= 2);
    QVERIFY(table.first().change.isEmpty());
    for (int i = 0; i < table.size(); ++i) {
        QCOMPARE(table.at(i).segments, 5 * (2 * i + 1));
        QByteArray deck = coarseDipole();
        deck.replace("GW 1 5", "GW 1 " + QByteArray::number(table.at(i).segments));
        deck.replace("EX 0 1 3", "EX 0 1 " + QByteArray::number(table.at(i).segments / 2 + 1));
        deck.replace("FR 0 5 0 0 280 5", "FR 0 1 0 0 290");
        QVERIFY(!writeFile(folder.path(), text("one.nec"), deck).isEmpty());
        QCOMPARE(runSuite(runkestProgram(), {text("one")}, folder.path()).exitCode, 0);
        const ResultTable one = ResultTable::read(folder.filePath(text("one.csv")));
        QCOMPARE(one.points.first().impedance()->resistance, table.at(i).impedance.real());
        QCOMPARE(one.points.first().impedance()->reactance, table.at(i).impedance.imag());
        if (i > 0) {
            const double change = std::abs(table.at(i).impedance - table.at(i - 1).impedance) /
                                  std::abs(table.at(i).impedance);
            QVERIFY(qAbs(table.at(i).change.toDouble() / change - 1) < 1e-4);
            QCOMPARE(change < threshold, i == table.size() - 1);
        }
    }
    const QString notice = text("the refinement converged after %1 iterations, number of segments "
                                "%2, last change ")
                               .arg(table.size())
                               .arg(table.last().segments);
    QCOMPARE(result.bodies(text("notice")).filter(notice).size(), 1);
    QCOMPARE(ownWarnings(result), QStringList());
}

void tst_amrkest::thresholdsAreOrdered()
{
    int last = 0;
    for (const char* word : {"high", "normal", "low"}) {
        const QTemporaryDir folder;
        const QString options =
            text("--skip-final-solve --max-iterations 12 --error-threshold ") + text(word);
        QCOMPARE(refine(folder, qPrintable(options)).exitCode, 0);
        const int count = readIterations(folder.filePath(text("m.amr.csv"))).size();
        QVERIFY(count >= last);
        QVERIFY(qstrcmp(word, "low") != 0 || count > 2);
        last = count;
    }
}

void tst_amrkest::refinedModelIsTheLastIterations()
{
    const QTemporaryDir folder;
    const QByteArray before = coarseDipole();
    QCOMPARE(refine(folder, "").exitCode, 0);
    QCOMPARE(readFile(folder.filePath(text("m.nec"))), before);
    const int segments = readIterations(folder.filePath(text("m.amr.csv"))).constLast().segments;
    QByteArray expected = before;
    expected.replace("GW 1 5", "GW 1 " + QByteArray::number(segments));
    expected.replace("EX 0 1 3", "EX 0 1 " + QByteArray::number(segments / 2 + 1));
    QCOMPARE(readFile(folder.filePath(text("m_amr.nec"))), expected);
}

void tst_amrkest::finalResultsAreAPlainRuns()
{
    const QTemporaryDir folder;
    QVERIFY(!copyModel(text("coarse.nec"), folder.path()).isEmpty());
    const SuiteResult result =
        runSuite(program(), words("coarse --max-iterations 12"), folder.path());
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(result.bodies(text("file")), QStringList({folder.filePath(text("coarse_amr.nec")),
                                                       folder.filePath(text("coarse.amr.csv")),
                                                       folder.filePath(text("coarse_amr.out")),
                                                       folder.filePath(text("coarse_amr.csv"))}));
    QVERIFY(result.hasText(text("NOTE 231: the refinement converged")));
    const QByteArray output = readFile(folder.filePath(text("coarse_amr.out")));
    const QByteArray table = readFile(folder.filePath(text("coarse_amr.csv")));
    QCOMPARE(ResultTable::read(folder.filePath(text("coarse_amr.csv"))).points.size(), 21);
    QCOMPARE(runSuite(runkestProgram(), words("coarse_amr"), folder.path()).exitCode, 0);
    QVERIFY(output == readFile(folder.filePath(text("coarse_amr.out"))));
    QCOMPARE(table, readFile(folder.filePath(text("coarse_amr.csv"))));
}

void tst_amrkest::finalSolveCanBeSkipped()
{
    const QTemporaryDir folder;
    QVERIFY(!writeFile(folder.path(), text("m_amr.csv"), "old table").isEmpty());
    const SuiteResult result = refine(folder, "--skip-final-solve");
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(result.lines.last(), text("-*-total-percentage-*-100%"));
    QCOMPARE(QDir(folder.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot, QDir::Name),
             words("m.amr.csv m.nec m_amr.csv m_amr.nec"));
    QCOMPARE(readFile(folder.filePath(text("m_amr.csv"))), QByteArray("old table"));
}

void tst_amrkest::frequencyIsTheMiddleUnlessGiven_data()
{
    QTest::addColumn<QString>("options");
    QTest::addColumn<QByteArray>("frequencies");
    QTest::addColumn<QByteArray>("expected");
    QTest::newRow("middle") << QString() << QByteArray("FR 0 5 0 0 280 5") << QByteArray("290");
    QTest::newRow("downwards") << QString() << QByteArray("FR 0 3 0 0 290 -5") << QByteArray("285");
    QTest::newRow("only one") << QString() << QByteArray("FR 0 1 0 0 300") << QByteArray("300");
    QTest::newRow("given") << text("--frequency 310.5") << QByteArray("FR 0 5 0 0 280 5")
                           << QByteArray("310.5");
    QTest::newRow("outside") << text("--frequency 1e2") << QByteArray("FR 0 5 0 0 280 5")
                             << QByteArray("100");
}

void tst_amrkest::frequencyIsTheMiddleUnlessGiven()
{
    QFETCH(QString, options);
    QFETCH(QByteArray, frequencies);
    QFETCH(QByteArray, expected);
    const QTemporaryDir folder;
    const QByteArray deck = coarseDipole().replace("FR 0 5 0 0 280 5", frequencies);
    const QString all = text("--skip-final-solve --keep-files ") + options;
    QCOMPARE(refine(folder, qPrintable(all), deck).exitCode, 0);
    for (const char* number : {"01", "02"}) {
        const QByteArray table =
            readFile(folder.filePath(text("m.amrkest/iteration_%1/m.csv").arg(text(number))));
        QCOMPARE(table.split('\n').value(1).split(',').first(), expected);
    }
    QVERIFY(readFile(folder.filePath(text("m_amr.nec"))).contains("\n" + frequencies + "\n"));
}

void tst_amrkest::tooFewIterationsAreWarnedOf_data()
{
    QTest::addColumn<int>("most");
    QTest::addColumn<QString>("reason");
    QTest::newRow("one") << 1
                         << text("1 iterations, one iteration has nothing to be compared with");
    QTest::newRow("two") << 2 << text("2 iterations, the last change was ");
}

void tst_amrkest::tooFewIterationsAreWarnedOf()
{
    QFETCH(int, most);
    QFETCH(QString, reason);
    const QTemporaryDir folder;
    const QString options = text("--error-threshold low --max-iterations %1").arg(most);
    const SuiteResult result = refine(folder, qPrintable(options));
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(ownWarnings(result).size(), 1);
    const QString expected = text("WARNING 3231: the refinement did not converge within ") + reason;
    QVERIFY2(ownWarnings(result).constFirst().startsWith(expected),
             qPrintable(ownWarnings(result).constFirst()));
    QCOMPARE(readIterations(folder.filePath(text("m.amr.csv"))).size(), most);
    QVERIFY(QFile::exists(folder.filePath(text("m_amr.csv"))));
}

void tst_amrkest::limitsStopTheRefinement_data()
{
    QTest::addColumn<QByteArray>("radius");
    QTest::addColumn<int>("iterations");
    QTest::newRow("at once") << QByteArray("0.005") << 1;
    QTest::newRow("later") << QByteArray("0.004") << 2;
}

void tst_amrkest::limitsStopTheRefinement()
{
    QFETCH(QByteArray, radius);
    QFETCH(int, iterations);
    const QTemporaryDir folder;
    const SuiteResult result =
        refine(folder, "--error-threshold low", coarseDipole().replace("0.00005", radius));
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(ownWarnings(result),
             QStringList(text("WARNING 3232: the refinement stopped before it converged, the "
                              "segments of the wire with tag 1 would be shorter than eight radii "
                              "(m.nec, line 3, tag 1)")));
    QCOMPARE(readIterations(folder.filePath(text("m.amr.csv"))).size(), iterations);
    QVERIFY(QFile::exists(folder.filePath(text("m_amr.out"))));
}

void tst_amrkest::progressOnlyGrows_data()
{
    QTest::addColumn<QString>("options");
    QTest::newRow("all") << QString();
    QTest::newRow("no final solution") << text("--skip-final-solve");
    QTest::newRow("a million") << text("--max-iterations 1000000");
}

void tst_amrkest::progressOnlyGrows()
{
    QFETCH(QString, options);
    const QTemporaryDir folder;
    const SuiteResult result = refine(folder, qPrintable(options));
    QCOMPARE(result.exitCode, 0);
    int last = 0;
    const QStringList totals = result.bodies(text("total-percentage"));
    QVERIFY(totals.size() >= 3);
    for (const QString& total : totals) {
        const int value = total.chopped(1).toInt();
        QVERIFY(value > last && value <= 100);
        last = value;
    }
    QCOMPARE(last, 100);
    QCOMPARE(result.lines.last(), text("-*-total-percentage-*-100%"));
}

void tst_amrkest::keptFilesAreTheIterations()
{
    const QTemporaryDir folder;
    QCOMPARE(refine(folder, "--keep-files").exitCode, 0);
    const QVector<Iteration> table = readIterations(folder.filePath(text("m.amr.csv")));
    const QDir kept(folder.filePath(text("m.amrkest")));
    QCOMPARE(kept.entryList({text("iteration_*")}, QDir::Dirs).size(), table.size());
    for (int i = 0; i < table.size(); ++i) {
        const QDir one(kept.filePath(text("iteration_%1").arg(i + 1, 2, 10, QLatin1Char('0'))));
        QCOMPARE(one.entryList(QDir::AllEntries | QDir::NoDotAndDotDot, QDir::Name),
                 words("m.csv m.nec m.out"));
        const suite::Preprocessor checked(readFile(one.filePath(text("m.nec"))));
        QCOMPARE(checked.model().structure.segmentCount(), table.at(i).segments);
    }
    // A shorter run leaves no iteration of the longer one.
    QCOMPARE(refine(folder, "--keep-files --max-iterations 1 --skip-final-solve").exitCode, 0);
    QCOMPARE(kept.entryList(QDir::AllEntries | QDir::NoDotAndDotDot, QDir::Name),
             words("iteration_01 made_by_amrkest"));
}

void tst_amrkest::nothingIsKeptUnasked()
{
    MarkedRuns runs;
    QVERIFY(!writeFile(runs.folder(), text("m.nec"), coarseDipole()).isEmpty());
    QCOMPARE(runSuite(program(), {text("m")}, runs.folder(), runs.environment()).exitCode, 0);
    QCOMPARE(runs.entries(), words("m.amr.csv m.nec m_amr.csv m_amr.nec m_amr.out"));
    QCOMPARE(runs.temporaryEntries(), QStringList());
}

QTEST_GUILESS_MAIN(tst_amrkest)
#include "tst_amrkest.moc"
