// SPDX-License-Identifier: MIT
#include "PlayedRun.h"

#include <QtTest>

#include <cmath>

namespace {

constexpr double goal = 0.2;

PlayedRun::Cost constant(double milliseconds)
{
    return [milliseconds](double /*done*/) { return milliseconds; };
}

PaceExpectation expectationOf(int frequencies)
{
    PaceExpectation result;
    result.frequencies = frequencies;
    return result;
}

} // namespace

class tst_run_pace : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void estimateIsCloseFromATenthOn_data()
    {
        QTest::addColumn<PlayedRun>("run");
        QTest::addColumn<PaceExpectation>("expected");
        const PlayedRun steady(200, constant(1000));
        const PlayedRun growing(200, [](double done) { return 500 + 1500 * done; });
        const PlayedRun slowlyGrowing(200, [](double done) { return 1000 + 300 * done; });
        const PlayedRun inBursts(
            200, [number = 0](double /*done*/) mutable { return ++number % 4 == 0 ? 4000. : 1.; });
        const PlayedRun uneven(200, [](double done) { return 1000 + 400 * std::sin(1000 * done); });
        PaceExpectation other = PlayedRun(50, constant(20), 100, 10).expectation();
        other.basis = PaceExpectation::Basis::OtherSize;
        PaceExpectation otherWithLongEnd = PlayedRun(50, constant(20), 100, 30000).expectation();
        otherWithLongEnd.basis = PaceExpectation::Basis::OtherSize;
        const PaceExpectation fasterMachine =
            PlayedRun(200, [](double done) { return 100 + 300 * done; }).expectation(0.73);
        // clang-format off
        QTest::newRow("constant, first run")            << steady                                     << PaceExpectation();
        QTest::newRow("constant, few frequencies")      << PlayedRun(60, constant(5000))              << expectationOf(60);
        QTest::newRow("check, then solve")              << PlayedRun(200, constant(1000), 10000)      << PaceExpectation();
        QTest::newRow("growing a little, first run")    << slowlyGrowing                              << PaceExpectation();
        QTest::newRow("growing, seen before")           << growing                                    << growing.expectation();
        QTest::newRow("growing, seen on a faster machine") << growing                                 << fasterMachine;
        QTest::newRow("constant, seen before")          << steady                                     << steady.expectation();
        QTest::newRow("three times as slow as before")  << PlayedRun(200, constant(3000))             << steady.expectation();
        QTest::newRow("another size")                   << steady                                     << other;
        QTest::newRow("another size, whose end takes long") << PlayedRun(200, constant(1000), 1000, 30000) << otherWithLongEnd;
        QTest::newRow("in bursts")                      << inBursts                                   << PaceExpectation();
        QTest::newRow("uneven")                         << uneven                                     << PaceExpectation();
        // clang-format on
    }

    void estimateIsCloseFromATenthOn()
    {
        QFETCH(PlayedRun, run);
        QFETCH(PaceExpectation, expected);
        for (const double part : {0.1, 0.2, 0.3, 0.4, 0.5, 0.6, 0.7, 0.8, 0.9}) {
            const double ratio = run.ratio(part, expected);
            QVERIFY2(std::abs(ratio - 1) <= goal,
                     qPrintable(QStringLiteral("%1 at %2").arg(ratio).arg(part)));
        }
    }

    // A line through the cost is followed as far as it has been seen.
    void costThatGrowsIsFollowed()
    {
        const PlayedRun run(400, [](double done) { return 500 + 1500 * done; });
        const double flat = 1 / 1.5; // the cost half-way, over the mean cost of the rest
        QVERIFY(run.ratio(0.5, PaceExpectation()) > flat + 0.15);
        QVERIFY(run.ratio(0.5, PaceExpectation()) < 1.1);
    }

    void earlierRunGivesAFigureAtOnce()
    {
        const PlayedRun run(1, constant(3600000));
        QCOMPARE(run.ratio(0.001, PaceExpectation()), 0.);
        for (const double part : {0.001, 0.1, 0.5, 0.9}) {
            const double ratio = run.ratio(part, run.expectation());
            QVERIFY2(std::abs(ratio - 1) < 0.05, qPrintable(QString::number(ratio)));
        }
    }

    void runOfAnotherMachineGivesNoFigureAlone()
    {
        const PlayedRun run(100, constant(1000));
        QCOMPARE(run.ratio(0.02, run.expectation(0.73)), 0.);
        QVERIFY(run.ratio(0.02, run.expectation(0.2)) > 0.8);
    }

    void firstStepsGiveNoFigure()
    {
        const PlayedRun run(50, constant(1000), 0);
        QVERIFY(!run.estimate(0.03, PaceExpectation()));
        QVERIFY(run.estimate(0.2, PaceExpectation()));
    }

    void openEndGivesNoFigureWithoutARunThatWasAlike()
    {
        const PlayedRun run(100, constant(1000));
        PaceExpectation open;
        open.isOpenEnded = true;
        QVERIFY(!run.estimate(0.5, open));
        PaceExpectation seen = run.expectation();
        seen.isOpenEnded = true;
        QVERIFY(run.estimate(0.5, seen));
    }

    void runThatStandsStillGivesNoFigure_data()
    {
        QTest::addColumn<PaceExpectation>("expected");
        QTest::newRow("first run") << PaceExpectation();
        QTest::newRow("seen before") << PlayedRun(100, constant(1000)).expectation();
    }

    void runThatStandsStillGivesNoFigure()
    {
        QFETCH(PaceExpectation, expected);
        const PlayedRun run(100, constant(1000));
        const RunPace pace = run.paceAt(50000, expected);
        QVERIFY(pace.remaining(50500));
        QVERIFY(pace.remaining(52000));
        QVERIFY(!pace.remaining(50000 + 60000));
    }

    // While a step lasts, the time is counted down, but not further than the step.
    void stepInProgressCounts()
    {
        const PlayedRun run(100, constant(10000), 1000);
        const RunPace pace = run.paceAt(401000, PaceExpectation());
        const double begin = pace.remaining(401000)->remaining;
        QCOMPARE(qRound(begin - pace.remaining(405000)->remaining), 4000);
        QCOMPARE(qRound(begin - pace.remaining(420000)->remaining), 10000);
    }

    void pauseIsNoWork_data()
    {
        QTest::addColumn<bool>("isSeen");
        QTest::newRow("first run") << false;
        QTest::newRow("seen before") << true;
    }

    void pauseIsNoWork()
    {
        QFETCH(bool, isSeen);
        const PlayedRun steady(100, constant(1000));
        const PlayedRun run(
            100, [](double done) { return std::abs(done - 0.3) < 0.001 ? 3600000. : 1000.; });
        const auto estimate =
            run.paceAt(3600000 + 50000, isSeen ? steady.expectation() : PaceExpectation())
                .remaining(3600000 + 50000);
        QVERIFY(estimate);
        QVERIFY2(std::abs(estimate->remaining / 50000 - 1) < 0.1,
                 qPrintable(QString::number(estimate->remaining)));
    }

    // A run that takes over what is there jumps to that part of the work.
    void leapAtTheStartIsNoWork()
    {
        const PlayedRun run(100, [](double done) { return done <= 0.6 ? 0. : 1000.; });
        const double ratio = run.ratio(0.3, PaceExpectation());
        QVERIFY2(std::abs(ratio - 1) < 0.1, qPrintable(QString::number(ratio)));
    }

    void totalAloneIsEnough()
    {
        RunPace pace;
        pace.expect(PaceExpectation());
        for (int total = 1; total <= 40; ++total) {
            pace.add(qint64(total) * 1000, common_IProcessMessage::TotalPercentage,
                     QString::number(total));
        }
        QCOMPARE(qRound(pace.remaining(40000)->remaining / 1000), 60);
    }

    // As of a solver whose phases are those of each frequency.
    void phasesThatRepeatAreNotTheMeasure()
    {
        RunPace pace;
        pace.expect(PaceExpectation());
        qint64 time = 0;
        for (int total = 2; total <= 40; total += 2) {
            for (int phase = 0; phase <= 100; phase += 25) {
                pace.add(time += 500, common_IProcessMessage::Percentage, QString::number(phase));
            }
            pace.add(time, common_IProcessMessage::TotalPercentage, QString::number(total));
        }
        QCOMPARE(qRound(pace.remaining(time)->remaining / 1000), 75);
    }

    void nothingReportedGivesNoFigure()
    {
        RunPace pace;
        pace.expect(PaceExpectation());
        QVERIFY(!pace.remaining(0));
        QVERIFY(!pace.remaining(1000000));
    }
};

QTEST_GUILESS_MAIN(tst_run_pace)

#include "tst_run_pace.moc"
