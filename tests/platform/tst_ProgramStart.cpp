// SPDX-License-Identifier: MIT
#include "TestRandom.h"

#include <Descendants.h>
#include <ParentProcess.h>
#include <Pipe.h>
#include <ProgramStart.h>

#include <QRandomGenerator>
#include <QThread>
#include <QtTest>

#include <functional>

#include <pthread.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr int patience = 30000; // ms, of a loaded machine

ProgramStart sleeper()
{
    ProgramStart start;
    start.words = {"sleep", "1000"};
    return start;
}

ProgramStart shell(const char* script)
{
    ProgramStart start;
    start.words = {"/bin/sh", "-c", script};
    return start;
}

/// A process of its own that does something and leaves with what that returns.
pid_t process(const std::function<int()>& deed)
{
    const pid_t result = ::fork();
    if (result == 0) {
        ::_exit(deed());
    }
    return result;
}

int statusOf(qint64 process)
{
    int status = -1;
    ::waitpid(static_cast<pid_t>(process), &status, 0);
    return status;
}

int exitCodeOf(qint64 process)
{
    const int status = statusOf(process);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

// Orphans that were adopted stay in the system's list until they are asked.
bool isAnythingLeft()
{
    pid_t reaped = 0;
    do {
        reaped = ::waitpid(-1, nullptr, WNOHANG);
    } while (reaped > 0);
    return reaped == 0 || Descendants::areAlive();
}

// QTRY_VERIFY would wait three times as long for what never comes, and so longer than a test
// function may take.
bool haveAllEnded()
{
    return QTest::qWaitFor([] { return !isAnythingLeft(); }, patience);
}

// Runs in the new process, between fork and exec.
void loseParent()
{
    const pid_t parent = ::getppid();
    ::kill(parent, SIGKILL);
    while (::getppid() == parent) {
        ::usleep(100);
    }
}

} // namespace

// How a program gets its process, and that it ends with the one that has started it.
class tst_ProgramStart : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // What loses its parent comes to this process, and cannot hide.
    void initTestCase() { Descendants::adoptOrphans(); }

    void cleanup()
    {
        Descendants::killAll();
        QVERIFY(haveAllEnded());
    }

    void programEndsWithItsParent()
    {
        const pid_t parent = process([] {
            const bool isStarted = sleeper().start().error == 0;
            return isStarted ? 7 : 8;
        });
        QCOMPARE(exitCodeOf(parent), 7);
        QVERIFY(haveAllEnded());
    }

    void programMayOutliveItsParent()
    {
        const pid_t parent = process([] {
            ProgramStart start = sleeper();
            start.deathSignal = 0;
            return start.start().error;
        });
        QCOMPARE(exitCodeOf(parent), 0);
        QTest::qWait(100);
        QVERIFY(isAnythingLeft());
    }

    // The signal at the parent's death comes too late then.
    void parentIsKilledBeforeTheProgramBegins()
    {
        std::optional<Pipe> pipe = Pipe::make();
        QVERIFY(pipe);
        const pid_t parent = process([&pipe] {
            ::pthread_atfork(nullptr, nullptr, loseParent);
            ProgramStart start = shell("echo begun; exec sleep 1000");
            start.channels[STDOUT_FILENO] = pipe->writeEnd.number();
            (void)start.start();
            return 0;
        });
        pipe->writeEnd.close();
        QVERIFY(WIFSIGNALED(statusOf(parent)));
        char byte = 0;
        QCOMPARE(::read(pipe->readEnd.number(), &byte, 1), ssize_t(0)); // closed: it did not begin
        QVERIFY(haveAllEnded());
    }

    void parentIsKilledAtRandomMoments()
    {
        QRandomGenerator random = TestRandom::anew();
        const int rounds = qEnvironmentVariableIsSet("KEST_FULL_TESTS") ? 3000 : 100;
        for (int i = 0; i < rounds; ++i) {
            const pid_t parent = process([] {
                for (;;) {
                    (void)sleeper().start();
                }
                return 0;
            });
            QThread::usleep(random.bounded(4000u)); // the moment is what is tried
            QCOMPARE(::kill(parent, SIGKILL), 0);
            QVERIFY(WIFSIGNALED(statusOf(parent)));
            QVERIFY(haveAllEnded());
        }
    }

    void groupIsTheChosenOne_data()
    {
        QTest::addColumn<int>("group");
        QTest::addColumn<bool>("isOwnGroup");
        QTest::addColumn<bool>("isOwnSession");
        QTest::newRow("this process's") << int(ProgramStart::Group::Same) << false << false;
        QTest::newRow("its own") << int(ProgramStart::Group::Own) << true << false;
        QTest::newRow("its own session") << int(ProgramStart::Group::Session) << true << true;
    }

    void groupIsTheChosenOne()
    {
        QFETCH(int, group);
        QFETCH(bool, isOwnGroup);
        QFETCH(bool, isOwnSession);
        ProgramStart start = sleeper();
        start.group = static_cast<ProgramStart::Group>(group);
        const ProgramStart::Result result = start.start();
        QCOMPARE(result.error, 0);
        const auto id = static_cast<pid_t>(result.process);
        QCOMPARE(::getpgid(id), isOwnGroup ? id : ::getpgrp());
        QCOMPARE(::getsid(id), isOwnSession ? id : ::getsid(0));
    }

    void failedStartHasItsReason()
    {
        ProgramStart start;
        start.words = {"/no such program"};
        const ProgramStart::Result result = start.start();
        QCOMPARE(result.error, ENOENT);
        QCOMPARE(result.process, 0);
        QCOMPARE(::waitpid(-1, nullptr, WNOHANG), -1);
    }

    void channelsAreConnected()
    {
        std::optional<Pipe> pipe = Pipe::make();
        QVERIFY(pipe);
        ProgramStart start = shell("echo out; echo err >&2");
        start.channels = {ProgramStart::inherited, pipe->writeEnd.number(),
                          pipe->writeEnd.number()};
        QCOMPARE(exitCodeOf(start.start().process), 0);
        char text[20] = {};
        QCOMPARE(::read(pipe->readEnd.number(), text, sizeof text - 1), 8);
        QCOMPARE(QByteArray(text), QByteArray("out\nerr\n"));
    }

    // Where standard channels are closed their numbers are given to the next file.
    void channelsAreConnectedWhereThisProcessHasNone()
    {
        const pid_t parent = process([] {
            for (const int number : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
                ::close(number);
            }
            std::optional<Pipe> input = Pipe::make();
            std::optional<Pipe> output = Pipe::make();
            if (!input || !output || ::write(input->writeEnd.number(), "hello", 5) != 5) {
                return 1;
            }
            input->writeEnd.close();
            ProgramStart start = shell("cat; printf err >&2");
            start.channels = {input->readEnd.number(), output->writeEnd.number(),
                              output->writeEnd.number()};
            if (exitCodeOf(start.start().process) != 0) {
                return 2;
            }
            char text[20] = {};
            return ::read(output->readEnd.number(), text, sizeof text - 1) == 8 &&
                           QByteArray(text) == "helloerr"
                       ? 0
                       : 3;
        });
        QCOMPARE(exitCodeOf(parent), 0);
    }

    void channelsMayTradePlaces()
    {
        const pid_t parent = process([] {
            std::optional<Pipe> pipe = Pipe::make();
            ::dup2(pipe->writeEnd.number(), STDERR_FILENO);
            ::dup2(pipe->readEnd.number(), STDOUT_FILENO);
            ProgramStart start = shell("echo to the pipe");
            start.channels = {ProgramStart::inherited, STDERR_FILENO, STDOUT_FILENO};
            if (exitCodeOf(start.start().process) != 0) {
                return 1;
            }
            char text[20] = {};
            return ::read(STDOUT_FILENO, text, sizeof text - 1) == 12 ? 0 : 2;
        });
        QCOMPARE(exitCodeOf(parent), 0);
    }

    void parentsAreKnown()
    {
        QVERIFY(ParentProcess::isBelow(::getppid()));
        QVERIFY(!ParentProcess::isBelow(::getpid()));
        QVERIFY(!ParentProcess::isBelow(0));
        const qint64 grandparent = ::getpid();
        const pid_t parent = process([grandparent] {
            return exitCodeOf(process([grandparent] {
                return ParentProcess::isBelow(grandparent) && ParentProcess::isBelow(::getppid()) &&
                               !ParentProcess::isBelow(::getpid())
                           ? 0
                           : 1;
            }));
        });
        QCOMPARE(exitCodeOf(parent), 0);
    }

    void processEndsWithItsParentWhenItWishesTo()
    {
        const pid_t parent = process([] {
            std::optional<Pipe> pipe = Pipe::make();
            process([&pipe] {
                ParentProcess::endWithIt();
                pipe->writeEnd.close();
                ::pause();
                return 0;
            });
            pipe->writeEnd.close();
            char byte = 0;
            return static_cast<int>(::read(pipe->readEnd.number(), &byte, 1));
        });
        QCOMPARE(exitCodeOf(parent), 0);
        QVERIFY(haveAllEnded());
    }
};

QTEST_GUILESS_MAIN(tst_ProgramStart)

#include "tst_ProgramStart.moc"
