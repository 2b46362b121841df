// SPDX-License-Identifier: MIT
#include <ChildProcess.h>
#include <StopSignals.h>

#include <QtTest>

#include <array>
#include <cerrno>
#include <csignal>
#include <memory>

#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr int patience = 30000; // ms, of a loaded machine

/// Notes the signals that it is told.
struct Receiver
{
    Receiver()
    {
        StopSignals::watch(&object, [this](int number) { numbers.append(number); });
    }

    QObject object;
    QVector<int> numbers;
};

struct sigaction actionOf(int number)
{
    struct sigaction action = {};
    ::sigaction(number, nullptr, &action);
    return action;
}

} // namespace

// The requests to end reach the event loop, and nothing else of the program.
class tst_StopSignals : public QObject
{
    Q_OBJECT

private:
    std::array<struct sigaction, 3> m_before = {};

    static constexpr std::array<int, 3> numbers = {SIGINT, SIGTERM, SIGHUP};

private Q_SLOTS:
    void init()
    {
        for (std::size_t i = 0; i < numbers.size(); ++i) {
            m_before[i] = actionOf(numbers[i]);
        }
    }

    void cleanup()
    {
        for (std::size_t i = 0; i < numbers.size(); ++i) {
            QVERIFY(actionOf(numbers[i]).sa_handler == m_before[i].sa_handler);
        }
    }

    void signalIsReportedFromTheEventLoop_data()
    {
        QTest::addColumn<int>("number");
        QTest::newRow("Ctrl+C") << SIGINT;
        QTest::newRow("terminate") << SIGTERM;
        QTest::newRow("terminal closed") << SIGHUP;
    }

    void signalIsReportedFromTheEventLoop()
    {
        QFETCH(int, number);
        const Receiver receiver;
        QCOMPARE(std::raise(number), 0);
        QVERIFY(receiver.numbers.isEmpty());
        QTRY_COMPARE_WITH_TIMEOUT(receiver.numbers, QVector<int>{number}, patience);
        QTest::qWait(10);
        QCOMPARE(receiver.numbers.size(), 1);
    }

    void numberMayBeOfNoInterest()
    {
        QObject receiver;
        int count = 0;
        StopSignals::watch(&receiver, [&count] { ++count; });
        std::raise(SIGTERM);
        QTRY_COMPARE_WITH_TIMEOUT(count, 1, patience);
    }

    void eachRequestIsReported()
    {
        const Receiver receiver;
        const QVector<int> all = {SIGINT, SIGINT, SIGTERM, SIGINT, SIGHUP};
        for (const int number : all) {
            std::raise(number);
        }
        QTRY_COMPARE_WITH_TIMEOUT(receiver.numbers, all, patience);
    }

    void moreRequestsThanAnyoneReadsAreSurvived()
    {
        const Receiver receiver;
        for (int i = 0; i < 100000; ++i) {
            std::raise(SIGTERM);
        }
        QTRY_VERIFY_WITH_TIMEOUT(receiver.numbers.size() > 1000, patience);
    }

    void hangUpIsIgnoredWhereNohupSaysSo()
    {
        const auto before = std::signal(SIGHUP, SIG_IGN);
        {
            const Receiver receiver;
            QVERIFY(actionOf(SIGHUP).sa_handler == SIG_IGN);
            std::raise(SIGHUP);
            std::raise(SIGTERM);
            QTRY_COMPARE_WITH_TIMEOUT(receiver.numbers, QVector<int>{SIGTERM}, patience);
        }
        QVERIFY(actionOf(SIGHUP).sa_handler == SIG_IGN);
        std::signal(SIGHUP, before);
    }

    void newestReceiverAloneIsCalled()
    {
        const Receiver first;
        {
            const Receiver second;
            std::raise(SIGINT);
            QTRY_COMPARE_WITH_TIMEOUT(second.numbers, QVector<int>{SIGINT}, patience);
            QVERIFY(first.numbers.isEmpty());
        }
        std::raise(SIGTERM);
        QTRY_COMPARE_WITH_TIMEOUT(first.numbers, QVector<int>{SIGTERM}, patience);
    }

    void receiverMayEndInItsOwnCall()
    {
        auto* const receiver = new QObject;
        QPointer<QObject> pointer(receiver);
        StopSignals::watch(receiver, [receiver] { receiver->deleteLater(); });
        std::raise(SIGTERM);
        QTRY_VERIFY_WITH_TIMEOUT(!pointer, patience);
    }

    void interruptedWorkIsContinuedWithItsOwnErrors()
    {
        const Receiver receiver;
        errno = EDOM;
        std::raise(SIGTERM);
        QCOMPARE(errno, EDOM);
        QTRY_COMPARE_WITH_TIMEOUT(receiver.numbers.size(), 1, patience);
    }

    // Before its program begins it has this process's handlers, and its pipe.
    void newProcessIsEndedByItsOwnSignals()
    {
        const Receiver receiver;
        const pid_t child = ::fork();
        if (child == 0) {
            std::raise(SIGTERM);
            ::_exit(0);
        }
        int status = 0;
        QCOMPARE(::waitpid(child, &status, 0), child);
        QVERIFY(WIFSIGNALED(status));
        QCOMPARE(WTERMSIG(status), SIGTERM);
        QTest::qWait(20);
        QVERIFY(receiver.numbers.isEmpty());
    }

    void programsHaveTheirUsualReactions()
    {
        const Receiver receiver;
        for (const int number : numbers) {
            ChildProcess process;
            QSignalSpy ended(&process, &ChildProcess::ended);
            QVERIFY(process.start(
                QStringLiteral("/bin/sh"),
                {QStringLiteral("-c"), QStringLiteral("kill -%1 $$; exit 0").arg(number)}));
            QTRY_COMPARE_WITH_TIMEOUT(ended.size(), 1, patience);
            QVERIFY(!process.hasExited());
            QCOMPARE(process.exitCode(), number);
        }
        QVERIFY(receiver.numbers.isEmpty());
    }
};

QTEST_GUILESS_MAIN(tst_StopSignals)

#include "tst_StopSignals.moc"
