// SPDX-License-Identifier: MIT
#include "../support/SystemSkips.h"

#include <ChildProcesses.h>

#include <QThread>
#include <QtTest>

namespace {

constexpr int patience = 30000; // ms, of a loaded machine
constexpr int never = 600000;

/// Processes that are played, and what is done to them.
struct Stage
{
    StagedEnd end = StagedEnd({[this] { return isAlive; }, [this] { ask(); }, [this] { kill(); }});
    QSignalSpy ended = QSignalSpy(&end, &StagedEnd::ended);
    QElapsedTimer clock;
    bool isAlive = true;
    bool endsWhenAsked = false;
    bool endsWhenKilled = false;
    int asked = 0;
    int killed = 0;
    qint64 firstAsked = -1;
    qint64 firstKilled = -1;

    void start(StopTimes times)
    {
        clock.start();
        end.start(times);
    }

    void ask()
    {
        firstAsked = asked++ == 0 ? clock.elapsed() : firstAsked;
        isAlive = isAlive && !endsWhenAsked;
    }

    void kill()
    {
        firstKilled = killed++ == 0 ? clock.elapsed() : firstKilled;
        isAlive = isAlive && !endsWhenKilled;
    }
};

std::unique_ptr<ChildProcess> started(const char* script)
{
    auto result = std::make_unique<ChildProcess>();
    result->start(QStringLiteral("/bin/sh"), {QStringLiteral("-c"), QString::fromUtf8(script)});
    return result;
}

} // namespace

// Processes are asked to end, then killed, then given up, in this order and never earlier than
// said; and real ones are.
class tst_StagedEnd : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void processesAreAskedAtOnce()
    {
        Stage stage;
        stage.endsWhenAsked = true;
        stage.start({never, never});
        QCOMPARE(stage.asked, 1);
        QCOMPARE(stage.ended.size(), 0); // from the event loop
        QTRY_COMPARE_WITH_TIMEOUT(stage.ended.size(), 1, patience);
        QCOMPARE(stage.killed, 0);
        QVERIFY(!stage.end.isActive());
    }

    void processesAreAskedAgainAndAgain()
    {
        Stage stage;
        stage.start({never, never});
        QTRY_VERIFY_WITH_TIMEOUT(stage.asked > 3, patience);
        QCOMPARE(stage.killed, 0);
        QCOMPARE(stage.ended.size(), 0);
    }

    void whatStaysIsKilledAfterItsTime()
    {
        Stage stage;
        stage.endsWhenKilled = true;
        stage.start({100, never});
        QTRY_COMPARE_WITH_TIMEOUT(stage.ended.size(), 1, patience);
        QVERIFY(stage.asked > 0);
        QVERIFY(stage.firstKilled >= 100);
        QCOMPARE(stage.killed, 1);
    }

    void whatCannotBeKilledIsGivenUp()
    {
        Stage stage;
        stage.start({60, 200});
        QTRY_COMPARE_WITH_TIMEOUT(stage.ended.size(), 1, patience);
        QVERIFY(stage.clock.elapsed() >= 200);
        QVERIFY(stage.killed > 0);
        QVERIFY(stage.firstKilled >= 60);
        const int killed = stage.killed;
        QTest::qWait(60);
        QCOMPARE(stage.killed, killed);
        QCOMPARE(stage.ended.size(), 1);
    }

    void askingMayBeginLater()
    {
        Stage stage;
        stage.start({never, never, 100});
        QCOMPARE(stage.asked, 0);
        QTRY_VERIFY_WITH_TIMEOUT(stage.asked > 0, patience);
        QVERIFY(stage.firstAsked >= 100);
    }

    void processesNeedNotBeAsked()
    {
        bool isAlive = true;
        StagedEnd end({[&isAlive] { return isAlive; }, {}, [&isAlive] { isAlive = false; }});
        QSignalSpy ended(&end, &StagedEnd::ended);
        end.start({60, never});
        QTRY_COMPARE_WITH_TIMEOUT(ended.size(), 1, patience);
        QVERIFY(!isAlive);
    }

    void timesMayChangeMeanwhile()
    {
        Stage stage;
        stage.endsWhenKilled = true;
        stage.start({never, never});
        QTest::qWait(40);
        QCOMPARE(stage.killed, 0);
        stage.end.setTimes({0, never});
        QTRY_COMPARE_WITH_TIMEOUT(stage.ended.size(), 1, patience);
    }

    void aSecondStartBeginsAnew()
    {
        Stage stage;
        stage.endsWhenKilled = true;
        stage.start({never, never});
        stage.start({0, never});
        QCOMPARE(stage.killed, 1);
        QTRY_COMPARE_WITH_TIMEOUT(stage.ended.size(), 1, patience);
    }

    void nothingIsDoneAfterItWasCancelled()
    {
        Stage stage;
        stage.start({0, 0});
        stage.end.cancel();
        const int killed = stage.killed;
        QTest::qWait(60);
        QCOMPARE(stage.ended.size(), 0);
        QCOMPARE(stage.killed, killed);
    }

    // As when the machine was suspended.
    void whoeverSleptThroughAllTimesKillsBeforeGivingUp()
    {
        Stage stage;
        stage.start({20, 40});
        QThread::msleep(100);
        QTRY_COMPARE_WITH_TIMEOUT(stage.ended.size(), 1, patience);
        QCOMPARE(stage.killed, 1);
    }

    void endOfNothingIsReportedFromTheEventLoop()
    {
        ChildProcesses processes({never, never});
        QSignalSpy ended(&processes, &ChildProcesses::allEnded);
        processes.stop();
        QCOMPARE(ended.size(), 0);
        QTRY_COMPARE_WITH_TIMEOUT(ended.size(), 1, patience);
        processes.stop();
        QTest::qWait(60);
        QCOMPARE(ended.size(), 1);
    }

    void allProcessesEndWhenTheyAreStopped()
    {
        SKIP_WITHOUT_SHELL();
        ChildProcesses processes({200, never});
        QSignalSpy ended(&processes, &ChildProcesses::allEnded);
        processes.add(3, started("exec sleep 1000"));
        processes.add(4, started("trap '' TERM; sleep 1000; sleep 1000"));
        processes.add(5, started("sleep 1000 & exit 0"));
        processes.add(6, std::make_unique<ChildProcess>());
        QCOMPARE(processes.count(), 4);
        QTest::qWait(60);
        QCOMPARE(ended.size(), 0);
        processes.stop();
        QTRY_COMPARE_WITH_TIMEOUT(ended.size(), 1, patience);
        for (const int number : {3, 4, 5}) {
            const ChildProcess* const process = processes.release(number);
            QVERIFY(process);
            QVERIFY(!process->isRunning());
            QVERIFY(!process->isGroupAlive());
        }
    }

    void processThatHasEndedIsReleased()
    {
        SKIP_WITHOUT_SHELL();
        ChildProcesses processes({never, never});
        auto process = std::make_unique<ChildProcess>();
        ChildProcess* const pointer = process.get();
        QPointer<ChildProcess> guard(pointer);
        processes.add(1, std::move(process));
        connect(pointer, &ChildProcess::ended, &processes, [&processes] { processes.release(1); });
        QVERIFY(pointer->start(QStringLiteral("true"), {}));
        QTRY_VERIFY_WITH_TIMEOUT(!guard, patience);
        QCOMPARE(processes.count(), 0);
        QVERIFY(!processes.release(1));
    }

    void processesAreKilledWithTheObject()
    {
        SKIP_WITHOUT_SHELL();
        std::unique_ptr<ChildProcess> process = started("sleep 1000 & exec sleep 1000");
        const QPointer<ChildProcess> guard(process.get());
        QVERIFY(process->isGroupAlive());
        {
            ChildProcesses processes({never, never});
            processes.add(1, std::move(process));
        }
        QVERIFY(!guard); // and the test's end tells whether anything runs
    }
};

QTEST_GUILESS_MAIN(tst_StagedEnd)

#include "tst_StagedEnd.moc"
