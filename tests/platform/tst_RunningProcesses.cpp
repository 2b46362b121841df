// SPDX-License-Identifier: MIT
#include <RunningProcesses.h>

#include <QtTest>

#include <csignal>

#include <sys/wait.h>
#include <unistd.h>

// What the system tells of other processes.
class tst_RunningProcesses : public QObject
{
    Q_OBJECT

private:
    pid_t m_child = 0;

    // A child that waits for a signal.
    void startChild()
    {
        m_child = fork();
        QVERIFY(m_child >= 0);
        if (m_child == 0) {
            for (;;) {
                pause();
            }
        }
    }

private Q_SLOTS:
    void init() { startChild(); }

    void cleanup() const
    {
        ::kill(m_child, SIGKILL);
        QCOMPARE(waitpid(m_child, nullptr, 0), m_child);
    }

    void processThatLivesIsNotEnding() const
    {
        QVERIFY(!RunningProcesses::isEnding(getpid()));
        QVERIFY(!RunningProcesses::isEnding(m_child));
    }

    // It has let go of its files, but its parent has not asked for the exit code.
    void processThatHasBeenKilledIsEnding() const
    {
        QCOMPARE(::kill(m_child, SIGKILL), 0);
        siginfo_t info;
        QCOMPARE(waitid(P_PID, static_cast<id_t>(m_child), &info, WEXITED | WNOWAIT), 0);
        QVERIFY(RunningProcesses::isEnding(m_child));
        QCOMPARE(RunningProcesses::startTime(m_child), std::optional<quint64>(0));
    }

    void processThatIsGoneIsNotEnding()
    {
        ::kill(m_child, SIGKILL);
        QCOMPARE(waitpid(m_child, nullptr, 0), m_child);
        QVERIFY(!RunningProcesses::isEnding(m_child));
        startChild();
    }

    void parentIsTold() const { QCOMPARE(RunningProcesses::parentOf(m_child), qint64(getpid())); }
};

QTEST_GUILESS_MAIN(tst_RunningProcesses)

#include "tst_RunningProcesses.moc"
