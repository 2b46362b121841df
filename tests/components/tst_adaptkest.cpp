// SPDX-License-Identifier: MIT
#include "AdaptkestParts.h"
#include "SuiteRun.h"

#include "ResultTable.h"

#include <QDir>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QtTest>

#include <algorithm>

using suite::ResultPoint;
using suite::ResultTable;

// Adaptive runs that go well: by adaptkest itself, and in place of runkest's sweep.
class tst_adaptkest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void fewPointsFindTheSameResonance_data();
    void fewPointsFindTheSameResonance();
    void pointsAreTheEnginesOwn();
    void resultsLookLikeTheSweeps();
    void budgetIsNeverExceeded_data();
    void budgetIsNeverExceeded();
    void processesDoNotMatter_data();
    void processesDoNotMatter();
    void progressOnlyGrows();
    void commentMakesRunkestSampleAdaptively();
    void runkestPrintsWhatAdaptkestPrints();
    void modelsWithoutTheCommentAreSwept();
    void fewFrequenciesAreSwept();
    void restartGivesTheSameBytes_data();
    void restartGivesTheSameBytes();
    void restartRedoesWhatIsBehind();
};

namespace {

double resonance(const SuiteResult& result)
{
    static const QRegularExpression pattern(text("resonance at ([0-9.]+) MHz"));
    return pattern.match(result.bodies(text("notice")).join(QLatin1Char('\n')))
        .captured(1)
        .toDouble();
}

} // namespace

void tst_adaptkest::fewPointsFindTheSameResonance_data()
{
    QTest::addColumn<QString>("model");
    QTest::addColumn<int>("most");
    QTest::newRow("dipole") << text("dipole") << 26;
    QTest::newRow("yagi") << text("yagi") << 21;
    QTest::newRow("monopole") << text("monopole") << 16;
    QTest::newRow("adaptive") << text("adaptive") << 100;
}

// The truth comes from a sweep of steps twenty times as small around the sweep's resonance.
void tst_adaptkest::fewPointsFindTheSameResonance()
{
    QFETCH(QString, model);
    QFETCH(int, most);
    const QTemporaryDir folder;
    const QString file = model + text(".nec");
    QVERIFY(!copyModel(file, folder.path()).isEmpty());
    const SuiteResult adaptive = runSuite(program(), {model}, folder.path());
    QCOMPARE(adaptive.exitCode, 0);
    const ResultTable points = ResultTable::read(folder.filePath(model + text(".csv")));
    QVERIFY2(points.points.size() <= most, qPrintable(QString::number(points.points.size())));

    const QByteArray deck = readFile(folder.filePath(file)).replace("CM @adapt", "CM no");
    QVERIFY(!writeFile(folder.path(), file, deck).isEmpty());
    const SuiteResult plain = runSuite(runkestProgram(), {model}, folder.path());
    QCOMPARE(plain.exitCode, 0);
    const ResultTable sweep = ResultTable::read(folder.filePath(model + text(".csv")));
    const double step = sweep.points.at(1).frequency - sweep.points.at(0).frequency;
    const double found = resonance(plain);
    QByteArray fine = deck;
    const int start = fine.indexOf("\nFR ") + 1;
    fine.replace(start, fine.indexOf('\n', start) - start,
                 "FR 0 41 0 0 " + QByteArray::number(found - step, 'g', 10) + ' ' +
                     QByteArray::number(step / 20, 'g', 10));
    QVERIFY(!writeFile(folder.path(), file, fine).isEmpty());
    const double truth = resonance(runSuite(runkestProgram(), {model}, folder.path()));

    QVERIFY(truth > 0);
    const double allowed = qMax(qAbs(found - truth), 0.005 * step) + 0.001;
    QVERIFY2(qAbs(resonance(adaptive) - truth) <= allowed,
             qPrintable(text("%1 %2 %3").arg(resonance(adaptive)).arg(found).arg(truth)));
}

// Each point is what a plain run at that one frequency gives.
void tst_adaptkest::pointsAreTheEnginesOwn()
{
    const QTemporaryDir folder;
    QVERIFY(!copyModel(text("dipole.nec"), folder.path()).isEmpty());
    QCOMPARE(runSuite(program(), {text("dipole")}, folder.path()).exitCode, 0);
    const ResultTable table = ResultTable::read(folder.filePath(text("dipole.csv")));
    QVERIFY(table.points.size() > 10);
    for (int i = 0; i < table.points.size(); i += 3) {
        const ResultPoint& point = table.points.at(i);
        QStringList cards = dipoleCards();
        cards[4] = text("FR 0 1 0 0 %1").arg(QString::number(point.frequency, 'g', 10));
        QVERIFY(!writeFile(folder.path(), text("one.nec"), deckOf(cards)).isEmpty());
        QCOMPARE(runSuite(runkestProgram(), {text("one")}, folder.path()).exitCode, 0);
        const ResultTable one = ResultTable::read(folder.filePath(text("one.csv")));
        QCOMPARE(one.points.size(), 1);
        QCOMPARE(one.points.first().frequency, point.frequency);
        QCOMPARE(one.points.first().impedance()->resistance, point.impedance()->resistance);
        QCOMPARE(one.points.first().impedance()->reactance, point.impedance()->reactance);
    }
}

void tst_adaptkest::resultsLookLikeTheSweeps()
{
    const QTemporaryDir folder;
    QVERIFY(!copyModel(text("yagi.nec"), folder.path()).isEmpty());
    QCOMPARE(runSuite(program(), {text("yagi")}, folder.path()).exitCode, 0);
    const ResultTable table = ResultTable::read(folder.filePath(text("yagi.csv")));
    QVERIFY(table.error.isEmpty());
    QVERIFY(std::is_sorted(
        table.points.begin(), table.points.end(),
        [](const ResultPoint& a, const ResultPoint& b) { return a.frequency < b.frequency; }));
    const QByteArray output = readFile(folder.filePath(text("yagi.out")));
    QCOMPARE(output.count("STRUCTURE SPECIFICATION"), 1);
    QCOMPARE(output.count("ANTENNA INPUT PARAMETERS"), table.points.size());
    QVERIFY(!output.contains("msec"));

    // At the frequencies that a plain sweep is given, the files are the same, byte for byte.
    const QByteArray ends = readFile(folder.filePath(text("yagi.nec")))
                                .replace("FR 0 41 0 0 138 0.3", "FR 0 5 0 0 138 3");
    QVERIFY(!writeFile(folder.path(), text("yagi.nec"), ends).isEmpty());
    QCOMPARE(runSuite(program(), {text("yagi")}, folder.path()).exitCode, 0);
    const QByteArray adaptiveOutput = readFile(folder.filePath(text("yagi.out")));
    const QByteArray adaptiveTable = readFile(folder.filePath(text("yagi.csv")));
    QCOMPARE(runSuite(runkestProgram(), {text("yagi")}, folder.path()).exitCode, 0);
    QVERIFY(adaptiveOutput == readFile(folder.filePath(text("yagi.out"))));
    QCOMPARE(adaptiveTable, readFile(folder.filePath(text("yagi.csv"))));
}

void tst_adaptkest::budgetIsNeverExceeded_data()
{
    QTest::addColumn<QString>("frequencies");
    QTest::addColumn<int>("count");
    QTest::addColumn<bool>("isUsedUp");
    QTest::newRow("one") << text("FR 0 1 0 0 300") << 1 << false;
    QTest::newRow("no count") << text("FR 0 0 0 0 300") << 1 << false;
    QTest::newRow("two") << text("FR 0 2 0 0 250 100") << 2 << false;
    QTest::newRow("five") << text("FR 0 5 0 0 100 100") << 5 << true;
    QTest::newRow("eight") << text("FR 0 8 0 0 100 100") << 8 << true;
    QTest::newRow("downwards") << text("FR 0 8 0 0 800 -100") << 8 << true;
    QTest::newRow("multiplied") << text("FR 1 8 0 0 100 1.35") << 8 << true;
}

void tst_adaptkest::budgetIsNeverExceeded()
{
    QFETCH(QString, frequencies);
    QFETCH(int, count);
    QFETCH(bool, isUsedUp);
    const QTemporaryDir folder;
    QVERIFY(!writeFile(folder.path(), text("m.nec"), adaptiveDipole(frequencies)).isEmpty());
    const SuiteResult result = runSuite(program(), {text("m")}, folder.path());
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(ResultTable::read(folder.filePath(text("m.csv"))).points.size(), count);
    const QString warning = text("all %1 frequencies are used and the curve is not").arg(count);
    QCOMPARE(!result.bodies(text("warning")).filter(warning).isEmpty(), isUsedUp);
    const QString notice = text("adaptive sampling took %1 of at most %1 frequencies").arg(count);
    QCOMPARE(result.bodies(text("notice")).filter(notice).size(), 1);
}

void tst_adaptkest::processesDoNotMatter_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::newRow("one") << words("-np 1");
    QTest::newRow("seven") << words("-np 7");
    QTest::newRow("all") << words("-np all");
    QTest::newRow("of runkest") << words("--runkest-options -np 3");
}

void tst_adaptkest::processesDoNotMatter()
{
    QFETCH(QStringList, options);
    const QTemporaryDir folder;
    QVERIFY(!copyModel(text("dipole.nec"), folder.path()).isEmpty());
    QCOMPARE(runSuite(program(), {text("dipole")}, folder.path()).exitCode, 0);
    const QByteArray output = readFile(folder.filePath(text("dipole.out")));
    const QByteArray table = readFile(folder.filePath(text("dipole.csv")));
    QVERIFY(!output.isEmpty());
    QCOMPARE(runSuite(program(), QStringList(text("dipole")) + options, folder.path()).exitCode, 0);
    QVERIFY(output == readFile(folder.filePath(text("dipole.out"))));
    QCOMPARE(readFile(folder.filePath(text("dipole.csv"))), table);
}

void tst_adaptkest::progressOnlyGrows()
{
    const QTemporaryDir folder;
    QVERIFY(!writeFile(folder.path(), text("m.nec"), adaptiveDipole()).isEmpty());
    for (const QString& starter : {program(), runkestProgram()}) {
        const SuiteResult result = runSuite(starter, {text("m")}, folder.path());
        int last = 0;
        const QStringList totals = result.bodies(text("total-percentage"));
        QVERIFY(totals.size() > 10);
        for (const QString& total : totals) {
            const int value = total.chopped(1).toInt();
            QVERIFY(value >= last && value <= 100);
            last = value;
        }
        QCOMPARE(totals.count(text("100%")), 1);
        QCOMPARE(result.lines.last(), text("-*-total-percentage-*-100%"));
    }
}

void tst_adaptkest::commentMakesRunkestSampleAdaptively()
{
    const QTemporaryDir folder;
    QVERIFY(!writeFile(folder.path(), text("m.nec"), adaptiveDipole()).isEmpty());
    QCOMPARE(runSuite(program(), {text("m")}, folder.path()).exitCode, 0);
    const QByteArray output = readFile(folder.filePath(text("m.out")));
    const QByteArray table = readFile(folder.filePath(text("m.csv")));
    QVERIFY(QFile::remove(folder.filePath(text("m.out"))));
    QVERIFY(QFile::remove(folder.filePath(text("m.csv"))));
    QCOMPARE(runSuite(runkestProgram(), {text("m")}, folder.path()).exitCode, 0);
    QVERIFY(output == readFile(folder.filePath(text("m.out"))));
    QCOMPARE(readFile(folder.filePath(text("m.csv"))), table);
    QVERIFY(table.count('\n') < 40);
}

// The findings about the model are told once, and the solving in adaptkest's words.
void tst_adaptkest::runkestPrintsWhatAdaptkestPrints()
{
    const QTemporaryDir folder;
    QVERIFY(!writeFile(folder.path(), text("m.nec"), adaptiveDipole()).isEmpty());
    const QStringList options =
        words("m -np 1 --prekest-options --print-variables --print-variables-to-out");
    const SuiteResult whole = runSuite(runkestProgram(), options, folder.path());
    QCOMPARE(whole.exitCode, 0);
    const SuiteResult own = runSuite(program(), words("m -np 1"), folder.path());
    const auto behind = [](const SuiteResult& result) {
        const int start = result.lines.indexOf(QRegularExpression(text("Solving at most.*")));
        return start < 0 ? QStringList() : QStringList(result.lines.mid(start));
    };
    QVERIFY(behind(own).size() > 20);
    QCOMPARE(behind(whole), behind(own));
    QCOMPARE(whole.bodies(text("notice")).filter(text("number of segments")).size(), 1);
    QCOMPARE(whole.bodies(text("variable")).filter(text("segments")).size(), 1);
    QCOMPARE(whole.lines.filter(text("Pre-processing")).size(), 1);
}

void tst_adaptkest::modelsWithoutTheCommentAreSwept()
{
    const QTemporaryDir folder;
    QVERIFY(!copyModel(text("dipole.nec"), folder.path()).isEmpty());
    const SuiteResult result =
        runSuite(runkestProgram(), words("dipole --adaptkest-options --restart 7 --keep-files"),
                 folder.path());
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(ResultTable::read(folder.filePath(text("dipole.csv"))).points.size(), 51);
    QVERIFY(!QFile::exists(folder.filePath(text("dipole.adaptkest"))));
}

void tst_adaptkest::fewFrequenciesAreSwept()
{
    const QTemporaryDir folder;
    QVERIFY(!writeFile(folder.path(), text("m.nec"), adaptiveDipole(text("FR 0 5 0 0 280 5")))
                 .isEmpty());
    const SuiteResult result = runSuite(runkestProgram(), {text("m")}, folder.path());
    QCOMPARE(result.exitCode, 0);
    QVERIFY(result.hasText(text("Solving 5 frequencies")));
}

void tst_adaptkest::restartGivesTheSameBytes_data()
{
    QTest::addColumn<bool>("byRunkest");
    QTest::newRow("adaptkest") << false;
    QTest::newRow("runkest") << true;
}

// From each analysis of a whole run, the last one included.
void tst_adaptkest::restartGivesTheSameBytes()
{
    QFETCH(bool, byRunkest);
    const QTemporaryDir folder;
    QVERIFY(!writeFile(folder.path(), text("m.nec"), adaptiveDipole()).isEmpty());
    QCOMPARE(runSuite(program(), words("m --keep-files"), folder.path()).exitCode, 0);
    const QByteArray output = readFile(folder.filePath(text("m.out")));
    const QByteArray table = readFile(folder.filePath(text("m.csv")));
    const QDir kept(folder.filePath(text("m.adaptkest")));
    const int last = kept.entryList({text("analysis_*.json")}).size();
    QVERIFY(last >= 3);
    for (int number = last; number >= 1; --number) {
        QVERIFY(!writeFile(folder.path(), text("m.out"), "old").isEmpty());
        const QString options = text("m%1 --restart %2 --keep-files")
                                    .arg(byRunkest ? text(" --adaptkest-options") : QString())
                                    .arg(number);
        const SuiteResult result = runSuite(byRunkest ? runkestProgram() : program(),
                                            options.split(QLatin1Char(' ')), folder.path());
        QCOMPARE(result.exitCode, 0);
        QVERIFY(!result.hasText(text("Analysis %1,").arg(number)));
        QCOMPARE(result.hasText(text("Analysis %1,").arg(number + 1)), number < last);
        QVERIFY(output == readFile(folder.filePath(text("m.out"))));
        QCOMPARE(readFile(folder.filePath(text("m.csv"))), table);
        QCOMPARE(kept.entryList({text("analysis_*.json")}).size(), last);
    }
}

// What the later files hold does not count, and they are gone once they are outdated.
void tst_adaptkest::restartRedoesWhatIsBehind()
{
    const QTemporaryDir folder;
    QVERIFY(!writeFile(folder.path(), text("m.nec"), adaptiveDipole()).isEmpty());
    const SuiteResult whole = runSuite(program(), words("m --keep-files"), folder.path());
    QVERIFY2(whole.exitCode == 0, qPrintable(whole.bodies(text("error")).join(QLatin1Char('\n'))));
    const QByteArray table = readFile(folder.filePath(text("m.csv")));
    const QString kept = folder.filePath(text("m.adaptkest"));
    const int last = QDir(kept).entryList({text("analysis_*.json")}).size();
    for (int number = 2; number <= last + 3; ++number) {
        QVERIFY(!writeFile(kept, text("analysis_%1.json").arg(number, 3, 10, QLatin1Char('0')),
                           "garbage")
                     .isEmpty());
    }
    const SuiteResult result =
        runSuite(program(), words("m --restart 1 --keep-files"), folder.path());
    QVERIFY2(result.exitCode == 0,
             qPrintable(result.bodies(text("error")).join(QLatin1Char('\n'))));
    QCOMPARE(readFile(folder.filePath(text("m.csv"))), table);
    QCOMPARE(QDir(kept).entryList({text("analysis_*.json")}).size(), last);
}

QTEST_GUILESS_MAIN(tst_adaptkest)
#include "tst_adaptkest.moc"
