// SPDX-License-Identifier: MIT
#include "RunkestParts.h"
#include "SuiteRun.h"

#include "EngineOutput.h"
#include "SweepReport.h"

#include <QRegularExpression>
#include <QTemporaryDir>
#include <QtTest>

#include <cmath>

// Runs that go well: what they compute and print.
class tst_runkest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void dipoleIsPhysics();
    void tableIsTheEnginesOwn_data();
    void tableIsTheEnginesOwn();
    void resonanceIsInterpolated();
    void standingWaveRatio_data();
    void standingWaveRatio();
    void progressOnlyGrows();
    void outputHoldsEveryFrequencyOnce();
    void runsAreIdentical_data();
    void runsAreIdentical();
    void resultsComeInOrder();
    void asManyEnginesRunAtOnceAsAreWanted_data();
    void asManyEnginesRunAtOnceAsAreWanted();
    void planeWaveHasNoImpedance();
};

namespace {

// Frequencies and impedances as the engine prints them for a whole sweep.
QVector<Row> engineTable(const QByteArray& output)
{
    QVector<Row> rows;
    bool isInput = false;
    const QList<QByteArray> lines = output.split('\n');
    for (const QByteArray& line : lines) {
        const QList<QByteArray> fields = line.simplified().split(' ');
        if (line.contains("FREQUENCY :")) {
            rows.append({fields.at(2).toDouble(), 0, 0, 0});
        }
        isInput = isInput || line.contains("ANTENNA INPUT PARAMETERS");
        if (isInput && fields.size() == 11 && fields.at(1).toInt() > 0) {
            rows.last().resistance = fields.at(6).toDouble();
            rows.last().reactance = fields.at(7).toDouble();
            isInput = false;
        }
    }
    return rows;
}

// The engine prints five digits; the last one depends on how it came to the frequency.
bool isSame(double left, double right)
{
    return qAbs(left - right) <= 1.01e-4 * qMax(qAbs(left), qAbs(right));
}

QString manyFrequencies()
{
    return QStringLiteral("FR 0 8 0 0 290 1");
}

} // namespace

// A thin half-wave dipole resonates a little below half a wavelength, with about 73 ohm.
void tst_runkest::dipoleIsPhysics()
{
    const QTemporaryDir folder;
    QVERIFY(!copyModel(text("dipole.nec"), folder.path()).isEmpty());
    const SuiteResult result = runModel(text("dipole"), folder.path());
    QCOMPARE(result.exitCode, 0);
    static const QRegularExpression pattern(
        QStringLiteral("^NOTE 201: resonance at ([0-9.]+) MHz with ([0-9.]+) ohm$"));
    const QStringList resonances = result.bodies(text("notice")).filter(pattern);
    QCOMPARE(resonances.size(), 1);
    const QRegularExpressionMatch match = pattern.match(resonances.first());
    const double length = 0.5 * match.captured(1).toDouble() / 299.792458;
    QVERIFY2(length > 0.465 && length < 0.485, qPrintable(QString::number(length)));
    const double resistance = match.captured(2).toDouble();
    QVERIFY2(resistance > 65 && resistance < 78, qPrintable(match.captured(2)));
}

void tst_runkest::tableIsTheEnginesOwn_data()
{
    QTest::addColumn<QByteArray>("deck");
    for (const char* name : {"dipole", "yagi", "monopole"}) {
        QTest::newRow(name) << readFile(suiteHome() + text("/models/") + text(name) + text(".nec"));
    }
    QTest::newRow("downwards") << dipoleWith(5, text("FR 0 5 0 0 310 -5"));
    QTest::newRow("multiplied") << dipoleWith(5, text("FR 1 5 0 0 290 1.02"));
    QTest::newRow("commas") << dipoleWith(3, text("gw,1,21,0,0,-.25,0,0,.25,1e-3"));
    QTest::newRow("network") << dipoleWith(7, text("NT 1 1 1 21 0 0 1e-3 0 0 0\nXQ"));
    QTest::newRow("two sources") << dipoleWith(6, text("EX 0 1 5 0 1 0\nEX 0 1 15 0 1 0"));
}

void tst_runkest::tableIsTheEnginesOwn()
{
    QFETCH(QByteArray, deck);
    const QTemporaryDir folder;
    QVERIFY(!writeFile(folder.path(), text("m.nec"), deck).isEmpty());
    const SuiteResult run = runModel(text("m"), folder.path());
    QVERIFY2(run.exitCode == 0, qPrintable(run.lines.join(QLatin1Char('\n'))));
    const QStringList arguments = {text("-i"), text("m.nec"), text("-o"), text("engine.out")};
    QCOMPARE(runSuite(text("nec2c"), arguments, folder.path()).exitCode, 0);

    const QVector<Row> ours = readTable(folder.filePath(text("m.csv")));
    const QVector<Row> theirs = engineTable(readFile(folder.filePath(text("engine.out"))));
    QVERIFY(theirs.size() >= 3);
    QCOMPARE(ours.size(), theirs.size());
    for (int i = 0; i < ours.size(); ++i) {
        QVERIFY(qAbs(ours.at(i).frequency / theirs.at(i).frequency - 1) < 1e-3);
        QVERIFY(isSame(ours.at(i).resistance, theirs.at(i).resistance));
        QVERIFY(isSame(ours.at(i).reactance, theirs.at(i).reactance));
        const double r = ours.at(i).resistance;
        const double x = ours.at(i).reactance;
        const double reflection = std::hypot(r - 50, x) / std::hypot(r + 50, x);
        const double ratio = (1 + reflection) / (1 - reflection);
        QVERIFY(qAbs(ours.at(i).ratio / ratio - 1) < 1e-4);
    }
}

void tst_runkest::resonanceIsInterpolated()
{
    using suite::Impedance;
    using suite::SweepReport::facts;
    const QVector<suite::Finding> found =
        facts({{100, Impedance{40, -30}}, {110, Impedance{60, 10}}, {120, Impedance{80, 50}}})
            .sorted();
    QCOMPARE(found.size(), 2);
    QCOMPARE(found.at(0).reason, text("resonance at 107.500 MHz with 55.00 ohm"));
    QCOMPARE(found.at(1).reason, text("lowest SWR 1.294 at 110.000 MHz"));

    QVERIFY(facts({{100, Impedance{50, 5}}, {110, Impedance{50, 6}}})
                .contains(suite::FindingKind::NoResonance));

    const QVector<suite::Finding> exact =
        facts({{100, Impedance{50, -5}}, {110, Impedance{50, 0}}, {120, Impedance{50, 5}}})
            .sorted();
    QCOMPARE(exact.size(), 2);
    QCOMPARE(exact.first().reason, text("resonance at 110.000 MHz with 50.00 ohm"));
}

void tst_runkest::standingWaveRatio_data()
{
    QTest::addColumn<double>("resistance");
    QTest::addColumn<double>("reactance");
    QTest::addColumn<double>("ratio");
    QTest::newRow("matched") << 50.0 << 0.0 << 1.0;
    QTest::newRow("double") << 100.0 << 0.0 << 2.0;
    QTest::newRow("half") << 25.0 << 0.0 << 2.0;
    QTest::newRow("reactive") << 50.0 << 50.0 << 2.6180339887;
}

void tst_runkest::standingWaveRatio()
{
    QFETCH(double, resistance);
    QFETCH(double, reactance);
    QFETCH(double, ratio);
    const suite::Impedance impedance{resistance, reactance};
    QVERIFY(qAbs(impedance.standingWaveRatio() - ratio) < 1e-9);
    const suite::Impedance lossless{0, reactance};
    QVERIFY(std::isinf(lossless.standingWaveRatio()));
}

void tst_runkest::progressOnlyGrows()
{
    const QTemporaryDir folder;
    QVERIFY(!copyModel(text("dipole.nec"), folder.path()).isEmpty());
    const SuiteResult result = runModel(text("dipole"), folder.path());
    int last = 0;
    const QStringList totals = result.bodies(text("total-percentage"));
    QVERIFY(totals.size() >= 51);
    for (const QString& total : totals) {
        QVERIFY(total.endsWith(QLatin1Char('%')));
        const int value = total.chopped(1).toInt();
        QVERIFY(value >= last && value <= 100);
        last = value;
    }
    QCOMPARE(totals.count(text("100%")), 1);
    QCOMPARE(result.lines.last(), text("-*-total-percentage-*-100%"));
    QCOMPARE(result.bodies(text("file")), QStringList({folder.filePath(text("dipole.out")),
                                                       folder.filePath(text("dipole.csv"))}));
    QVERIFY(result.errorOutput.isEmpty());
}

void tst_runkest::outputHoldsEveryFrequencyOnce()
{
    const QTemporaryDir folder;
    QVERIFY(!writeFile(folder.path(), text("m.nec"), dipoleWith(5, manyFrequencies())).isEmpty());
    const SuiteResult run = runModel(text("m"), folder.path());
    QVERIFY2(run.exitCode == 0, qPrintable(run.lines.join(QLatin1Char('\n'))));
    const QByteArray output = readFile(folder.filePath(text("m.out")));
    const QVector<Row> rows = engineTable(output);
    QCOMPARE(rows.size(), 8);
    for (int i = 0; i < rows.size(); ++i) {
        QCOMPARE(rows.at(i).frequency, 290.0 + i);
    }
    QCOMPARE(output.count("STRUCTURE SPECIFICATION"), 1);
    QVERIFY(!output.contains("msec"));
    QVERIFY(output.contains("A dipole"));
}

void tst_runkest::runsAreIdentical_data()
{
    QTest::addColumn<QString>("processes");
    QTest::newRow("one at once") << text("1");
    QTest::newRow("seven at once") << text("7");
    QTest::newRow("all") << text("all");
}

void tst_runkest::runsAreIdentical()
{
    QFETCH(QString, processes);
    const QTemporaryDir folder;
    QVERIFY(!copyModel(text("yagi.nec"), folder.path()).isEmpty());
    QCOMPARE(runModel(text("yagi"), folder.path()).exitCode, 0);
    const QByteArray output = readFile(folder.filePath(text("yagi.out")));
    const QByteArray table = readFile(folder.filePath(text("yagi.csv")));
    QVERIFY(!output.isEmpty() && !table.isEmpty());
    const SuiteResult again = runModel(text("yagi"), folder.path(), {text("-np"), processes});
    QCOMPARE(again.exitCode, 0);
    QVERIFY(output == readFile(folder.filePath(text("yagi.out"))));
    QVERIFY(table == readFile(folder.filePath(text("yagi.csv"))));
}

void tst_runkest::resultsComeInOrder()
{
    const QTemporaryDir folder;
    QVERIFY(!writeFile(folder.path(), text("m.nec"), dipoleWith(5, manyFrequencies())).isEmpty());
    const SuiteResult result = runSuite(runkestProgram(), {text("m"), text("-np"), text("4")},
                                        folder.path(), fakeEngine(text("reversed")));
    QCOMPARE(result.exitCode, 0);
    const QVector<Row> rows = readTable(folder.filePath(text("m.csv")));
    QCOMPARE(rows.size(), 8);
    for (int i = 0; i < rows.size(); ++i) {
        QCOMPARE(rows.at(i).frequency, 290.0 + i);
    }
}

void tst_runkest::asManyEnginesRunAtOnceAsAreWanted_data()
{
    QTest::addColumn<QString>("part");
    QTest::addColumn<QString>("processes");
    QTest::newRow("one") << text("alone") << text("1");
    QTest::newRow("eight") << text("together") << text("8");
}

void tst_runkest::asManyEnginesRunAtOnceAsAreWanted()
{
    QFETCH(QString, part);
    QFETCH(QString, processes);
    const QTemporaryDir folder;
    const QTemporaryDir meeting;
    QVERIFY(!writeFile(folder.path(), text("m.nec"), dipoleWith(5, manyFrequencies())).isEmpty());
    QProcessEnvironment environment = fakeEngine(part);
    environment.insert(text("FAKE_ENGINE_MEETING"), meeting.path());
    const SuiteResult result =
        runSuite(runkestProgram(), {text("m"), text("-np"), processes}, folder.path(), environment);
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(readTable(folder.filePath(text("m.csv"))).size(), 8);
}

void tst_runkest::planeWaveHasNoImpedance()
{
    const QTemporaryDir folder;
    QVERIFY(!writeFile(folder.path(), text("m.nec"), dipoleWith(6, text("EX 1 1 1 0 0 0 0 0 0 0")))
                 .isEmpty());
    const SuiteResult result = runModel(text("m"), folder.path());
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(
        readFile(folder.filePath(text("m.csv"))),
        QByteArray("frequency_MHz,resistance_ohm,reactance_ohm,swr\n290,,,\n295,,,\n300,,,\n"));
    QVERIFY(readFile(folder.filePath(text("m.out"))).contains("FREQUENCY"));
}

QTEST_GUILESS_MAIN(tst_runkest)
#include "tst_runkest.moc"
