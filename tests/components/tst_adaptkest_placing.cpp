// SPDX-License-Identifier: MIT
#include "AdaptivePlacing.h"
#include "Preprocessor.h"
#include "SuiteRun.h"

#include <TestRandom.h>

#include <QtTest>

#include <cmath>
#include <complex>
#include <functional>

using suite::AdaptivePlacing;
using suite::FrequencyRange;
using suite::Impedance;

// Where frequencies are placed for a known curve, and the comment line that asks for it.
class tst_adaptkest_placing : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void smallRangesAreTheSweep_data();
    void smallRangesAreTheSweep();
    void beginsWithAnEvenGrid_data();
    void beginsWithAnEvenGrid();
    void smoothCurveNeedsNoMore();
    void sharpResonanceDrawsPoints();
    void curveIsWithinTheTolerance_data();
    void curveIsWithinTheTolerance();
    void neverMorePointsThanTheSweep();
    void resonanceIsAsNarrowAsTheSteps_data();
    void resonanceIsAsNarrowAsTheSteps();
    void resonanceFarFromTheBestMatchIsFound();
    void bestMatchIsAsNarrowAsTheSteps();
    void smallerToleranceTakesMorePoints();
    void midpointsHaveTheDigitsOfTables();
    void multipliedRangesAreHalvedByRatio();
    void tinyRangesEnd();
    void impedanceOfZeroIsNoProblem();
    void commentAsksForIt_data();
    void commentAsksForIt();
    void commentWithMistakes_data();
    void commentWithMistakes();
};

namespace {

using Curve = std::function<std::complex<double>(double)>;

FrequencyRange range(double start, double step, int count, bool isMultiplying = false)
{
    FrequencyRange result;
    result.isMultiplying = isMultiplying;
    result.start = start;
    result.step = step;
    result.count = count;
    return result;
}

Impedance impedance(const Curve& curve, double frequency)
{
    return {curve(frequency).real(), curve(frequency).imag()};
}

// Solves all rounds; the points in rising order.
QVector<double> solved(AdaptivePlacing& placing, const Curve& curve)
{
    QVector<double> points;
    for (QVector<double> next = placing.next(); !next.isEmpty(); next = placing.next()) {
        for (const double frequency : qAsConst(next)) {
            placing.add(frequency, impedance(curve, frequency));
        }
        points += next;
    }
    std::sort(points.begin(), points.end());
    return points;
}

// A series circuit; the quality says how sharp its resonance is.
Curve seriesCircuit(double resonance, double quality)
{
    return [=](double frequency) {
        const double x = frequency / resonance - resonance / frequency;
        return std::complex<double>(50, 50 * quality * x);
    };
}

Curve parallelCircuit(double resonance, double quality)
{
    return [=](double frequency) {
        const double x = frequency / resonance - resonance / frequency;
        return 2000.0 / std::complex<double>(1, quality * x);
    };
}

double widthAround(const QVector<double>& points, double place)
{
    const auto above = std::upper_bound(points.begin(), points.end(), place);
    return above == points.begin() || above == points.end() ? 1e9 : *above - *(above - 1);
}

QByteArray deckWith(const QString& comment)
{
    QStringList cards = dipoleCards();
    cards.insert(1, comment);
    return deckOf(cards);
}

} // namespace

void tst_adaptkest_placing::smallRangesAreTheSweep_data()
{
    QTest::addColumn<int>("count");
    for (int count = 1; count <= 5; ++count) {
        QTest::addRow("%d", count) << count;
    }
}

void tst_adaptkest_placing::smallRangesAreTheSweep()
{
    QFETCH(int, count);
    const FrequencyRange sweep = range(100, 3, count);
    AdaptivePlacing placing(sweep, 0.0001);
    QCOMPARE(placing.next(), sweep.values());
    QCOMPARE(solved(placing, seriesCircuit(104, 500)), sweep.values());
    QVERIFY(placing.next().isEmpty());
}

void tst_adaptkest_placing::beginsWithAnEvenGrid_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("first");
    QTest::newRow("6") << 6 << 5;
    QTest::newRow("21") << 21 << 5;
    QTest::newRow("51") << 51 << 11;
    QTest::newRow("52") << 52 << 12;
    QTest::newRow("401") << 401 << 81;
}

void tst_adaptkest_placing::beginsWithAnEvenGrid()
{
    QFETCH(int, count);
    QFETCH(int, first);
    const AdaptivePlacing placing(range(200 + count, -1, count), 0.01);
    const QVector<double> points = placing.next();
    QCOMPARE(points.size(), first);
    QCOMPARE(points.first(), 201.0);
    QCOMPARE(points.last(), 200.0 + count);
    for (int i = 1; i < points.size(); ++i) {
        const double width = (count - 1.0) / (first - 1);
        QVERIFY(qAbs(points.at(i) - points.at(i - 1) - width) < 1e-6);
        QVERIFY(width <= 5 + 1e-9);
    }
}

// A straight line without a resonance; the best match is at its lower end.
void tst_adaptkest_placing::smoothCurveNeedsNoMore()
{
    AdaptivePlacing placing(range(100, 1, 101), 0.01);
    const QVector<double> points =
        solved(placing, [](double f) { return std::complex<double>(f, f); });
    QVERIFY2(points.size() <= 21 + 3, qPrintable(QString::number(points.size())));
    QVERIFY(placing.isFine());
}

void tst_adaptkest_placing::sharpResonanceDrawsPoints()
{
    AdaptivePlacing placing(range(100, 0.5, 401), 0.01);
    const QVector<double> points = solved(placing, parallelCircuit(207, 40));
    const auto countBetween = [&points](double from, double to) {
        return std::count_if(points.begin(), points.end(),
                             [=](double f) { return f >= from && f < to; });
    };
    QVERIFY(countBetween(197, 217) > 3 * countBetween(270, 290));
    QVERIFY(points.size() < 200);
    QVERIFY(placing.isFine());
}

void tst_adaptkest_placing::curveIsWithinTheTolerance_data()
{
    QTest::addColumn<double>("quality");
    QTest::addColumn<bool>("isParallel");
    QTest::addColumn<double>("tolerance");
    for (const double quality : {3.0, 10.0, 40.0}) {
        for (const double tolerance : {0.1, 0.02, 0.005}) {
            QTest::addRow("series %g %g", quality, tolerance) << quality << false << tolerance;
            QTest::addRow("parallel %g %g", quality, tolerance) << quality << true << tolerance;
        }
    }
}

// The straight lines between the points stay close to the curve wherever one looks; and so do the
// reflection coefficients on lines of any impedance.
void tst_adaptkest_placing::curveIsWithinTheTolerance()
{
    QFETCH(double, quality);
    QFETCH(bool, isParallel);
    QFETCH(double, tolerance);
    const Curve curve = isParallel ? parallelCircuit(207, quality) : seriesCircuit(207, quality);
    AdaptivePlacing placing(range(100, 0.2, 1001), tolerance);
    const QVector<double> points = solved(placing, curve);
    QVERIFY(placing.isFine());
    QVERIFY(points.size() < 1001);
    QRandomGenerator random = TestRandom::usual(1);
    for (int i = 1; i < points.size(); ++i) {
        const double part = random.generateDouble();
        const double from = points.at(i - 1);
        const double to = points.at(i);
        const std::complex<double> line = curve(from) + part * (curve(to) - curve(from));
        const std::complex<double> truth = curve(from + part * (to - from));
        const double error = std::abs(line - truth) / std::abs(truth);
        QVERIFY2(error < 1.5 * tolerance, qPrintable(QString::number(error)));
        for (const double z : {1.0, 50.0, 3000.0}) {
            const auto reflection = [z](std::complex<double> value) {
                return (value - z) / (value + z);
            };
            QVERIFY(std::abs(reflection(line) - reflection(truth)) < 1.5 * tolerance);
        }
    }
}

void tst_adaptkest_placing::neverMorePointsThanTheSweep()
{
    QRandomGenerator random = TestRandom::usual(2);
    for (int count = 1; count < 60; ++count) {
        AdaptivePlacing placing(range(100, 2, count), 0.0001);
        const QVector<double> points = solved(placing, [&random](double) {
            return std::complex<double>(random.bounded(100.0), random.bounded(100.0) - 50);
        });
        QVERIFY(points.size() <= count);
        QCOMPARE(placing.count(), points.size());
        QVERIFY(std::adjacent_find(points.begin(), points.end()) == points.end());
        QCOMPARE(points.first(), 100.0);
        QCOMPARE(points.last(), 100.0 + 2 * (count - 1));
    }
}

void tst_adaptkest_placing::resonanceIsAsNarrowAsTheSteps_data()
{
    QTest::addColumn<double>("resonance");
    QTest::addColumn<bool>("isParallel");
    for (const double resonance : {101.0, 150.3, 207.0, 298.9}) {
        QTest::addRow("series %g", resonance) << resonance << false;
        QTest::addRow("parallel %g", resonance) << resonance << true;
    }
}

void tst_adaptkest_placing::resonanceIsAsNarrowAsTheSteps()
{
    QFETCH(double, resonance);
    QFETCH(bool, isParallel);
    AdaptivePlacing placing(range(100, 2, 101), 0.5);
    const QVector<double> points =
        solved(placing, isParallel ? parallelCircuit(resonance, 2) : seriesCircuit(resonance, 2));
    QVERIFY(widthAround(points, resonance) <= 2 + 1e-9);
    QVERIFY(points.size() < 45);
}

// A straight line, so that its bend asks for nothing.
void tst_adaptkest_placing::resonanceFarFromTheBestMatchIsFound()
{
    AdaptivePlacing placing(range(100, 2, 101), 0.5);
    const QVector<double> points = solved(placing, [](double f) {
        return std::complex<double>(50 + 10 * (300 - f), 0.1 * (f - 157));
    });
    QVERIFY(widthAround(points, 157) <= 2 + 1e-9);
    QVERIFY(widthAround(points, 207) > 5);
}

void tst_adaptkest_placing::bestMatchIsAsNarrowAsTheSteps()
{
    AdaptivePlacing placing(range(100, 2, 101), 0.5);
    // No resonance; 50 ohm resistance and the least reactance at 223 MHz.
    const QVector<double> points =
        solved(placing, [](double f) { return std::complex<double>(50, 5 + qAbs(f - 223)); });
    QVERIFY(widthAround(points, 223) <= 2 + 1e-9);
    QVERIFY(widthAround(points, 140) > 5);
}

void tst_adaptkest_placing::smallerToleranceTakesMorePoints()
{
    int last = 0;
    for (const double tolerance : {0.5, 0.1, 0.02, 0.004}) {
        AdaptivePlacing placing(range(100, 0.5, 401), tolerance);
        const int count = solved(placing, parallelCircuit(207, 40)).size();
        QVERIFY(count > last);
        last = count;
    }
}

void tst_adaptkest_placing::midpointsHaveTheDigitsOfTables()
{
    AdaptivePlacing placing(range(1.0 / 3, 1.0 / 7, 301), 0.001);
    const QVector<double> points = solved(placing, parallelCircuit(20, 10));
    for (const double point : points) {
        QCOMPARE(QByteArray::number(point, 'g', 10).toDouble(), point);
    }
}

void tst_adaptkest_placing::multipliedRangesAreHalvedByRatio()
{
    AdaptivePlacing placing(range(1, std::pow(2.0, 0.1), 101, true), 0.5);
    const QVector<double> first = placing.next();
    QCOMPARE(first.size(), 21);
    for (int i = 1; i < first.size(); ++i) {
        QVERIFY(qAbs(first.at(i) / first.at(i - 1) / std::sqrt(2.0) - 1) < 1e-8);
    }
    const QVector<double> points = solved(placing, seriesCircuit(37, 2));
    const double middle = 32 * std::pow(2.0, 0.25);
    QVERIFY(std::any_of(points.begin(), points.end(),
                        [middle](double f) { return qAbs(f / middle - 1) < 1e-8; }));
}

// Ten digits cannot tell more frequencies apart.
void tst_adaptkest_placing::tinyRangesEnd()
{
    AdaptivePlacing placing(range(300, 1e-8, 50), 0.0001);
    const QVector<double> points =
        solved(placing, [](double f) { return std::complex<double>(50, (f - 300.0000002) * 1e9); });
    QVERIFY(points.size() >= 2 && points.size() <= 50);
}

void tst_adaptkest_placing::impedanceOfZeroIsNoProblem()
{
    AdaptivePlacing placing(range(100, 1, 101), 0.01);
    const QVector<double> points =
        solved(placing, [](double) { return std::complex<double>(0, 0); });
    QVERIFY(points.size() >= 21 && points.size() <= 101);
}

void tst_adaptkest_placing::commentAsksForIt_data()
{
    QTest::addColumn<QString>("comment");
    QTest::addColumn<bool>("isWanted");
    QTest::addColumn<double>("tolerance");
    const auto add = [](const char* comment, bool isWanted, double tolerance) {
        QTest::newRow(comment) << QString::fromLatin1(comment) << isWanted << tolerance;
    };
    add("CM @adapt", true, 0.01);
    add("CM @adapt 0.05", true, 0.05);
    add("cm   @Adapt   5e-3  ", true, 0.005);
    add("CM\t@adapt\t0.5", true, 0.5);
    add("CM @adapt 0.0001", true, 0.0001);
    add("CM @adaptive", false, 0.01);
    add("CM we @adapt here", false, 0.01);
    add("CM adapt 0.1", false, 0.01);
}

void tst_adaptkest_placing::commentAsksForIt()
{
    QFETCH(QString, comment);
    QFETCH(bool, isWanted);
    QFETCH(double, tolerance);
    const suite::Preprocessor checked(deckWith(comment));
    QVERIFY(!checked.findings().hasErrors());
    QCOMPARE(checked.model().adaptive.isWanted, isWanted);
    QCOMPARE(checked.model().adaptive.tolerance, tolerance);
}

void tst_adaptkest_placing::commentWithMistakes_data()
{
    QTest::addColumn<QByteArray>("deck");
    QTest::addColumn<QString>("error");
    const auto add =
        [](const char* comment, int number, const char* reason) {
            QTest::newRow(comment)
                << deckWith(QString::fromLatin1(comment))
                << QStringLiteral("ERROR %1: %2").arg(number).arg(QString::fromLatin1(reason));
        };
    const char* one = "the comment @adapt takes one tolerance from 0.0001 to 0.5 or none and has ";
    for (const char* word :
         {"0", "-0.1", "0.51", "0.00009", "much", "nan", "inf", "1%", "0.1 0.2"}) {
        add(qPrintable(QStringLiteral("CM @adapt ") + QLatin1String(word)), 2421,
            qPrintable(QLatin1String(one) + QLatin1Char('\'') + QLatin1String(word) +
                       QLatin1Char('\'')));
    }
    add("CM @adapt\nCM @adapt 0.1", 2422,
        "there is a second comment @adapt, the first is in line 2");
    QTest::newRow("plane wave")
        << deckWith(QStringLiteral("CM @adapt"))
               .replace("EX 0 1 11 0 1 0", "EX 1 1 1 0 0 0 0 0 0 0")
        << QStringLiteral("ERROR 2423: adaptive sampling looks at the input impedance");
}

void tst_adaptkest_placing::commentWithMistakes()
{
    QFETCH(QByteArray, deck);
    QFETCH(QString, error);
    const QTemporaryDir folder;
    QVERIFY(!writeFile(folder.path(), QStringLiteral("m.nec"), deck).isEmpty());
    const SuiteResult result = runSuite(prekestProgram(), {QStringLiteral("m.nec")}, folder.path());
    QCOMPARE(result.exitCode, 1);
    const QStringList errors = result.bodies(QStringLiteral("error"));
    QCOMPARE(errors.size(), 1);
    QVERIFY2(errors.first().startsWith(error), qPrintable(errors.first()));
}

QTEST_GUILESS_MAIN(tst_adaptkest_placing)
#include "tst_adaptkest_placing.moc"
