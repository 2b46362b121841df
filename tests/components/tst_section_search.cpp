// SPDX-License-Identifier: MIT
#include "GoldenSection.h"
#include "ParallelSection.h"

#include <TestRandom.h>

#include <QtTest>

#include <algorithm>
#include <cmath>
#include <functional>
#include <memory>

using suite::GoldenSection;
using suite::ParallelSection;
using suite::SectionSearch;

// The searches find the known minima of functions, in as few rounds as their sections promise.
class tst_section_search : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void minimumIsFound_data();
    void minimumIsFound();
    void goldenSectionKeepsItsRatio();
    void parallelSectionKeepsItsRatio_data();
    void parallelSectionKeepsItsRatio();
    void parallelSectionIsTheNarrowest();
    void moreAtOnceTakeFewerRounds();
    void orderOfResultsMakesNoDifference();
    void resultsFromElsewhereAreUsed();
    void edgeIsSeen_data();
    void edgeIsSeen();
    void flatFunctionEnds();
    void anyFunctionEnds();
    void narrowIntervalEnds_data();
    void narrowIntervalEnds();
    void progressRises();
};

namespace {

using Function = std::function<double(double)>;

std::unique_ptr<SectionSearch> search(double low, double high, int atOnce)
{
    if (atOnce == 1) {
        return std::make_unique<GoldenSection>(low, high);
    }
    return std::make_unique<ParallelSection>(low, high, atOnce);
}

constexpr int mostRounds = 200;

// Searches to the end; the number of rounds, or -1 when something is wrong with a round.
int run(SectionSearch& search, const Function& function, int atOnce)
{
    for (int round = 0; round < mostRounds; ++round) {
        const QVector<double> points = search.next();
        if (points.isEmpty()) {
            return round;
        }
        const double low = search.low();
        const double high = search.high();
        for (int i = 0; i < points.size(); ++i) {
            const bool isInside = points.at(i) > low && points.at(i) < high;
            if (!isInside || (i > 0 && points.at(i) <= points.at(i - 1))) {
                return -1;
            }
        }
        if (points.size() > atOnce) {
            return -1;
        }
        for (const double point : points) {
            search.add(point, function(point));
        }
    }
    return -1;
}

} // namespace

void tst_section_search::minimumIsFound_data()
{
    QTest::addColumn<double>("low");
    QTest::addColumn<double>("high");
    QTest::addColumn<double>("minimum");
    QTest::addColumn<int>("shape");
    QTest::addColumn<int>("atOnce");
    struct Row
    {
        const char* name;
        double low;
        double high;
        double minimum;
    };
    static constexpr Row table[] = {
        {"middle", 0.4, 0.6, 0.5},
        {"off the middle", 0.4, 0.6, 0.474},
        {"near the low end", 1, 2, 1.001},
        {"near the high end", 1, 2, 1.999},
        {"negative", -20, -10, -13},
        {"across 0", -1, 2, 0.3},
        {"at 0", -1, 2, 0},
        {"large", 1e6, 9e6, 3.3e6},
        {"small", 1e-9, 9e-9, 3.3e-9},
        {"from 0 on", 0, 1, 0.01},
    };
    for (const Row& row : table) {
        for (int shape = 0; shape < 3; ++shape) {
            for (const int atOnce : {1, 2, 3, 4, 7, 64}) {
                QTest::addRow("%s, shape %d, %d at once", row.name, shape, atOnce)
                    << row.low << row.high << row.minimum << shape << atOnce;
            }
        }
    }
}

void tst_section_search::minimumIsFound()
{
    QFETCH(double, low);
    QFETCH(double, high);
    QFETCH(double, minimum);
    QFETCH(int, shape);
    QFETCH(int, atOnce);
    const Function function = [=](double x) {
        const double part = (x - minimum) / (high - low);
        switch (shape) {
        case 0:
            return std::abs(part);
        case 1:
            return part < 0 ? -100 * part : part;
        default:
            return std::sqrt(std::abs(part)) + 3;
        }
    };
    const auto searched = search(low, high, atOnce);
    const int rounds = run(*searched, function, atOnce);
    QVERIFY(rounds > 0);
    QVERIFY2(rounds <= 50, qPrintable(QString::number(rounds)));
    const double scale = qMax(std::abs(low), std::abs(high));
    const double allowed = 1.001e-4 * qMax(std::abs(minimum), 1e-4 * scale);
    QVERIFY2(std::abs(searched->best() - minimum) <= allowed,
             qPrintable(QString::number(searched->best(), 'g', 12)));
    QVERIFY(searched->low() <= minimum && minimum <= searched->high());
    QVERIFY(searched->high() - searched->low() <= allowed);
    QVERIFY(!searched->isAtEdge());
}

// After the first two each evaluation leaves 0.618 of the interval.
void tst_section_search::goldenSectionKeepsItsRatio()
{
    GoldenSection searched(0, 1);
    const double ratio = (std::sqrt(5) - 1) / 2;
    double width = 1;
    for (int i = 0; i < 12; ++i) {
        const QVector<double> points = searched.next();
        QCOMPARE(points.size(), 1);
        searched.add(points.first(), std::abs(points.first() - 0.3217));
        if (i > 0) {
            width *= ratio;
            QVERIFY(std::abs((searched.high() - searched.low()) / width - 1) < 1e-4);
        }
    }
}

void tst_section_search::parallelSectionKeepsItsRatio_data()
{
    QTest::addColumn<int>("atOnce");
    QTest::addColumn<double>("ratio");
    QTest::newRow("two halve it") << 2 << 1.0 / 2;
    QTest::newRow("three halve it") << 3 << 1.0 / 2;
    QTest::newRow("four make it a third") << 4 << 1.0 / 3;
    QTest::newRow("eight make it a fifth") << 8 << 1.0 / 5;
    QTest::newRow("thirty make it a sixteenth") << 30 << 1.0 / 16;
}

void tst_section_search::parallelSectionKeepsItsRatio()
{
    QFETCH(int, atOnce);
    QFETCH(double, ratio);
    QRandomGenerator random = TestRandom::usual(6);
    for (int i = 0; i < 50; ++i) {
        const double minimum = 1 + random.bounded(1.0);
        ParallelSection searched(1, 2, atOnce);
        double width = 2.0 / (atOnce + 1);
        for (int round = 0; !searched.next().isEmpty(); ++round) {
            QVERIFY(round < 20);
            const QVector<double> points = searched.next();
            QCOMPARE(points.size(), atOnce);
            for (const double point : points) {
                searched.add(point, std::abs(point - minimum));
            }
            const double now = searched.high() - searched.low();
            QVERIFY2(now <= width * 1.001, qPrintable(QString::number(now / width)));
            width = now * ratio;
        }
    }
}

// No other share of the points between the two gaps leaves less in the worst case.
void tst_section_search::parallelSectionIsTheNarrowest()
{
    const auto worst = [](QVector<double> points, double best) {
        points += {0, best, 1};
        std::sort(points.begin(), points.end());
        double width = 0;
        for (int i = 1; i + 1 < points.size(); ++i) {
            width = qMax(width, points.at(i + 1) - points.at(i - 1));
        }
        return width;
    };
    QRandomGenerator random = TestRandom::usual(11);
    for (int i = 0; i < 2000; ++i) {
        const double best = 0.02 + 0.96 * random.bounded(1.0);
        const int atOnce = 2 + random.bounded(6);
        ParallelSection searched(0, 1, atOnce);
        searched.add(best, 1);
        double narrowest = 2;
        for (int left = 0; left <= atOnce; ++left) {
            QVector<double> points;
            for (int k = 1; k <= atOnce; ++k) {
                points.append(k <= left ? best * k / (left + 1)
                                        : best + (1 - best) * (k - left) / (atOnce - left + 1));
            }
            narrowest = qMin(narrowest, worst(points, best));
        }
        const double width = worst(searched.next(), best);
        QVERIFY2(width <= narrowest * 1.0001, qPrintable(QString::number(width / narrowest)));
    }
}

void tst_section_search::moreAtOnceTakeFewerRounds()
{
    int before = mostRounds;
    for (const int atOnce : {1, 2, 4, 8, 16}) {
        const auto searched = search(0.4, 0.6, atOnce);
        const int rounds = run(
            *searched, [](double x) { return std::abs(x - 0.474); }, atOnce);
        QVERIFY(rounds > 0);
        QVERIFY2(rounds < before, qPrintable(QString::number(rounds)));
        before = rounds;
    }
}

void tst_section_search::orderOfResultsMakesNoDifference()
{
    const auto function = [](double x) { return std::abs(x - 1.3); };
    ParallelSection first(1, 2, 4);
    ParallelSection second(1, 2, 4);
    while (!first.next().isEmpty()) {
        const QVector<double> points = first.next();
        QCOMPARE(second.next(), points);
        for (int i = 0; i < points.size(); ++i) {
            first.add(points.at(i), function(points.at(i)));
            const double other = points.at(points.size() - 1 - i);
            second.add(other, function(other));
        }
    }
    QCOMPARE(second.next(), QVector<double>());
    QCOMPARE(second.best(), first.best());
}

void tst_section_search::resultsFromElsewhereAreUsed()
{
    const auto function = [](double x) { return std::abs(x - 1.3); };
    GoldenSection fresh(1, 2);
    const int freshRounds = run(fresh, function, 1);
    for (const int atOnce : {1, 3}) {
        const auto seeded = search(1, 2, atOnce);
        for (const double point : {1.32, 1.05, 1.29, 1.9}) {
            seeded->add(point, function(point));
        }
        QCOMPARE(seeded->low(), 1.05);
        QCOMPARE(seeded->high(), 1.32);
        const int rounds = run(*seeded, function, atOnce);
        QVERIFY(rounds > 0 && rounds < freshRounds);
        QVERIFY(std::abs(seeded->best() - 1.3) < 1.4e-4);
    }
}

void tst_section_search::edgeIsSeen_data()
{
    QTest::addColumn<int>("atOnce");
    for (const int atOnce : {1, 2, 5}) {
        QTest::addRow("%d at once", atOnce) << atOnce;
    }
}

void tst_section_search::edgeIsSeen()
{
    QFETCH(int, atOnce);
    const auto falling = search(1, 2, atOnce);
    QVERIFY(run(
                *falling, [](double x) { return -x; }, atOnce) > 0);
    QVERIFY(falling->isAtEdge());
    QVERIFY(falling->best() > 1.999 && falling->best() < 2);
    const auto rising = search(1, 2, atOnce);
    QVERIFY(run(
                *rising, [](double x) { return x; }, atOnce) > 0);
    QVERIFY(rising->isAtEdge());
    QVERIFY(rising->best() < 1.001 && rising->best() > 1);
}

void tst_section_search::flatFunctionEnds()
{
    for (const int atOnce : {1, 2, 9}) {
        const auto searched = search(-3, 5, atOnce);
        QVERIFY(run(
                    *searched, [](double) { return 7; }, atOnce) > 0);
    }
}

// The interval shrinks around the best point even where there are many minima.
void tst_section_search::anyFunctionEnds()
{
    QRandomGenerator random = TestRandom::usual(7);
    for (int i = 0; i < 200; ++i) {
        const double factor = random.bounded(500.0);
        const Function function = [factor](double x) { return std::sin(factor * x) + 0.1 * x; };
        for (const int atOnce : {1, 2, 5}) {
            const auto searched = search(0.5, 4, atOnce);
            double best = 10;
            const int rounds = run(
                *searched,
                [&](double x) {
                    best = qMin(best, function(x));
                    return function(x);
                },
                atOnce);
            QVERIFY(rounds > 0);
            QCOMPARE(function(searched->best()), best);
        }
    }
}

void tst_section_search::narrowIntervalEnds_data()
{
    QTest::addColumn<double>("high");
    QTest::addColumn<bool>("hasRoom");
    QTest::newRow("a millionth") << 1 + 1e-6 << true;
    QTest::newRow("beyond the digits of a point") << 1 + 1e-11 << true;
    QTest::newRow("two last digits") << 1 + 4.5e-16 << true;
    QTest::newRow("one last digit") << 1 + 2.3e-16 << false;
}

void tst_section_search::narrowIntervalEnds()
{
    QFETCH(double, high);
    QFETCH(bool, hasRoom);
    for (const int atOnce : {1, 2, 50}) {
        const auto searched = search(1, high, atOnce);
        QCOMPARE(searched->next().isEmpty(), !hasRoom);
        QVERIFY(run(
                    *searched, [](double x) { return x; }, atOnce) >= 0);
        QVERIFY(searched->next().isEmpty());
    }
}

void tst_section_search::progressRises()
{
    GoldenSection searched(1, 2);
    double before = 0;
    QCOMPARE(searched.progress(), 0.0);
    while (!searched.next().isEmpty()) {
        const double point = searched.next().constFirst();
        searched.add(point, std::abs(point - 1.7));
        QVERIFY(searched.progress() >= before && searched.progress() <= 1);
        before = searched.progress();
    }
    QCOMPARE(searched.progress(), 1.0);
}

QTEST_APPLESS_MAIN(tst_section_search)
#include "tst_section_search.moc"
