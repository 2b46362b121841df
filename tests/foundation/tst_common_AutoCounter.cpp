// SPDX-License-Identifier: MIT
#include <common_AutoCounter.h>

#include <QtTest>

#include <thread>
#include <vector>

class tst_common_AutoCounter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void startsAtZero() { QCOMPARE(common_AutoCounter().value(), 0); }

    void countsUpAndDown()
    {
        common_AutoCounter counter;
        counter.increment();
        counter.increment();
        counter.decrement();
        QCOMPARE(counter.value(), 1);
        counter.decrement();
        counter.decrement();
        QCOMPARE(counter.value(), -1);
    }

    void copyAndAssignmentCopyTheValueAndCountOnAlone()
    {
        common_AutoCounter counter;
        counter.increment();
        const common_AutoCounter copy = counter;
        common_AutoCounter assigned;
        assigned = counter;
        counter.increment();
        QCOMPARE(copy.value(), 1);
        QCOMPARE(assigned.value(), 1);
        QCOMPARE(counter.value(), 2);
    }

    void losesNoStepBetweenThreads()
    {
        common_AutoCounter counter;
        constexpr int count = 4;
        std::vector<std::thread> threads;
        threads.reserve(count);
        for (int thread = 0; thread < count; ++thread) {
            threads.emplace_back([&counter] {
                for (int step = 0; step < 100000; ++step) {
                    counter.increment();
                }
            });
        }
        for (std::thread& thread : threads) {
            thread.join();
        }
        QCOMPARE(counter.value(), 400000);
    }
};

QTEST_GUILESS_MAIN(tst_common_AutoCounter)
#include "tst_common_AutoCounter.moc"
