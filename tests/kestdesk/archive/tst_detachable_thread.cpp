// SPDX-License-Identifier: MIT
#include <DetachableThread.h>

#include <QtTest>

#include <atomic>
#include <future>
#include <memory>

class tst_detachable_thread : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void endWaitsForTheFunction()
    {
        std::promise<void> release;
        std::atomic<bool> isDone{false};
        DetachableThread thread;
        thread.start([&isDone, released = release.get_future().share()] {
            released.wait();
            QTest::qSleep(50);
            isDone = true;
        });
        QVERIFY(!isDone);
        release.set_value();
        thread.end();
        QVERIFY(isDone);
    }

    void functionThatDoesNotReturnIsLeftBehind()
    {
        std::promise<void> release;
        const auto used = std::make_shared<int>(1);
        {
            DetachableThread thread(std::chrono::milliseconds(50));
            thread.start([used, released = release.get_future().share()] { released.wait(); });
        }
        QCOMPARE(used.use_count(), 2L);
        release.set_value();
        QTRY_COMPARE_WITH_TIMEOUT(used.use_count(), 1L, 30000);
    }

    void endDoesNothingBeforeTheStart()
    {
        DetachableThread thread;
        thread.end();
        std::atomic<bool> isDone{false};
        thread.start([&isDone] { isDone = true; });
        thread.end();
        thread.end();
        QVERIFY(isDone);
    }
};

QTEST_GUILESS_MAIN(tst_detachable_thread)

#include "tst_detachable_thread.moc"
