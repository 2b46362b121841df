// SPDX-License-Identifier: MIT
#include <RunProgress.h>

#include <QtTest>

namespace {

using Type = common_IProcessMessage::Type;

void addPhase(RunProgress& progress, qint64 time, int percentage)
{
    progress.add(time, Type::Percentage, QString::number(percentage));
}

void addTotal(RunProgress& progress, qint64 time, int percentage)
{
    progress.add(time, Type::TotalPercentage, QString::number(percentage));
}

} // namespace

class tst_run_progress : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void totalsInALeapCameAllAtOnce()
    {
        RunProgress progress;
        addTotal(progress, 100, 5);
        addTotal(progress, 300, 7);
        QCOMPARE(progress.totalTimes().mid(0, 9),
                 QVector<qint64>({0, 100, 100, 100, 100, 100, 300, 300, -1}));
        QCOMPARE(progress.totalTimes().size(), 101);
        QCOMPARE(progress.total(), 7);
        QCOMPARE(progress.time(), qint64(300));
    }

    void repetitionsChangeNothing()
    {
        RunProgress progress;
        addTotal(progress, 100, 5);
        addTotal(progress, 200, 5);
        QCOMPARE(progress.totalTimes()[5], qint64(100));
        QCOMPARE(progress.time(), qint64(100));
    }

    void totalThatFallsIsReachedAgain()
    {
        RunProgress progress;
        addTotal(progress, 100, 50);
        addTotal(progress, 200, 20);
        QCOMPARE(progress.totalTimes()[20], qint64(100));
        QCOMPARE(progress.totalTimes()[21], qint64(-1));
        addTotal(progress, 300, 30);
        QCOMPARE(progress.totalTimes()[30], qint64(300));
    }

    void whatIsOutOfTheRangeCountsForNothing()
    {
        RunProgress progress;
        addTotal(progress, 100, 50);
        addTotal(progress, 200, 101);
        addTotal(progress, 200, -1);
        QCOMPARE(progress.total(), 50);
    }

    void otherMessagesCountForNothing()
    {
        RunProgress progress;
        progress.add(100, Type::Output, QStringLiteral("50"));
        QCOMPARE(progress.total(), 0);
        QCOMPARE(progress.time(), qint64(0));
    }

    void phaseBeginsWhereThePercentageFalls()
    {
        RunProgress progress;
        addPhase(progress, 50, 100);
        addPhase(progress, 100, 0);
        addTotal(progress, 100, 5);
        addPhase(progress, 200, 10);
        addTotal(progress, 200, 14);
        QCOMPARE(progress.phaseBegin(), 5);
        QCOMPARE(progress.phaseBeginTime(), qint64(100));
        QCOMPARE(progress.phasePoints().size(), 2);
        QCOMPARE(progress.phasePoints().last().work, 10.);
        QCOMPARE(progress.phaseEnd(), 95.);
    }

    void phaseEndIsOpenUntilThePhaseMoves()
    {
        RunProgress progress;
        addPhase(progress, 100, 0);
        addTotal(progress, 100, 5);
        QCOMPARE(progress.phaseEnd(), 100.);
    }
};

QTEST_GUILESS_MAIN(tst_run_progress)

#include "tst_run_progress.moc"
