// SPDX-License-Identifier: MIT
#include "common_EndOfTurn.h"

#include <QtTest>

#include <memory>

class tst_common_EndOfTurn : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void doesItOnceATurn();
    void doesItAgainWhenAskedMeanwhile();
    void doesNothingAfterItsEnd();
};

void tst_common_EndOfTurn::doesItOnceATurn()
{
    int times = 0;
    common_EndOfTurn endOfTurn([&times] { ++times; });
    QCoreApplication::processEvents();
    QCOMPARE(times, 0);
    for (int turn = 1; turn <= 3; ++turn) {
        endOfTurn.ask();
        endOfTurn.ask();
        QCOMPARE(times, turn - 1);
        QCoreApplication::processEvents();
        QCOMPARE(times, turn);
    }
    QCoreApplication::processEvents();
    QCOMPARE(times, 3);
}

void tst_common_EndOfTurn::doesItAgainWhenAskedMeanwhile()
{
    int times = 0;
    common_EndOfTurn endOfTurn([&] {
        if (++times < 3) {
            endOfTurn.ask();
        }
    });
    endOfTurn.ask();
    QTRY_COMPARE(times, 3);
}

void tst_common_EndOfTurn::doesNothingAfterItsEnd()
{
    int times = 0;
    auto endOfTurn = std::make_unique<common_EndOfTurn>([&times] { ++times; });
    endOfTurn->ask();
    endOfTurn.reset();
    QCoreApplication::processEvents();
    QCOMPARE(times, 0);
}

QTEST_GUILESS_MAIN(tst_common_EndOfTurn)
#include "tst_common_EndOfTurn.moc"
