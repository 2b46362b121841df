// SPDX-License-Identifier: MIT
#include <Stopwatch.h>
#include <UnloadedClock.h>

#include <QFile>
#include <QThread>
#include <QtTest>

#include <atomic>
#include <ctime>
#include <thread>
#include <vector>

namespace {

/// Several threads for each processor that do nothing but take it.
class Load
{
public:
    Load()
    {
        constexpr int each = 2;
        const int count = each * QThread::idealThreadCount();
        for (int i = 0; i < count; ++i) {
            m_threads.emplace_back([this] {
                while (!m_isOver) {
                }
            });
        }
    }
    Load(const Load&) = delete;
    Load& operator=(const Load&) = delete;
    ~Load()
    {
        m_isOver = true;
        for (std::thread& thread : m_threads) {
            thread.join();
        }
    }

private:
    std::atomic<bool> m_isOver{false};
    std::vector<std::thread> m_threads;
};

#ifdef Q_OS_UNIX
/// Takes as much time of the processor.
void work(qint64 milliseconds)
{
    const auto now = [] {
        timespec time = {};
        ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
        return qint64(time.tv_sec) * 1000 + time.tv_nsec / 1000000;
    };
    const qint64 end = now() + milliseconds;
    while (now() < end) {
    }
}
#else
void work(qint64 milliseconds)
{
    QElapsedTimer clock;
    clock.start();
    while (!clock.hasExpired(milliseconds)) {
    }
}
#endif

} // namespace

// The clocks of tests with limits: they see what takes long, and forgive a machine that is busy.
class tst_clocks : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void stopwatchCountsWaiting()
    {
        const Stopwatch stopwatch;
        QTest::qSleep(100); // what is measured
        QVERIFY2(stopwatch.elapsed() >= 95, qPrintable(QString::number(stopwatch.elapsed())));
    }

    void stopwatchCountsWork()
    {
        const Stopwatch stopwatch;
        work(100);
        QVERIFY2(stopwatch.elapsed() >= 95, qPrintable(QString::number(stopwatch.elapsed())));
    }

    void stopwatchLeavesOutWhatOthersTake()
    {
#ifdef Q_OS_LINUX
        const bool isCounted = QFile::exists(QStringLiteral("/proc/thread-self/schedstat"));
#else
        const bool isCounted = false;
#endif
        if (!isCounted) {
            QSKIP("The system does not count how long a thread waits for a processor.");
        }
        const Load load;
        QElapsedTimer clock;
        clock.start();
        const Stopwatch stopwatch;
        work(100);
        QVERIFY2(stopwatch.elapsed() <= clock.elapsed() * 3 / 4,
                 qPrintable(QStringLiteral("%1 of %2 milliseconds")
                                .arg(stopwatch.elapsed())
                                .arg(clock.elapsed())));
    }

    void unloadedClockLeavesOutLoad()
    {
        if (!QFile::exists(QStringLiteral("/proc/pressure/cpu"))) {
            QSKIP("The system does not count how long programs wait for processors.");
        }
        const Load load;
        QElapsedTimer clock;
        clock.start();
        const UnloadedClock unloaded;
        work(200);
        QVERIFY2(unloaded.elapsed() <= clock.elapsed() * 3 / 4,
                 qPrintable(QStringLiteral("%1 of %2 milliseconds")
                                .arg(unloaded.elapsed())
                                .arg(clock.elapsed())));
    }
};

QTEST_APPLESS_MAIN(tst_clocks)
#include "tst_clocks.moc"
