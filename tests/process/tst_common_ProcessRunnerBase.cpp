// SPDX-License-Identifier: MIT
#include "LineRunner.h"

#include <RecordingObserver.h>
#include <SystemSkips.h>

#include <common_ProcessRunnerBase.h>

#include <QRegularExpression>
#include <QTemporaryDir>
#include <QtTest>

#include <type_traits>

namespace {

static_assert(std::is_abstract<common_ProcessRunnerBase>::value, "the lines need a meaning");

} // namespace

class tst_common_ProcessRunnerBase : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { qunsetenv(logVariable); }

    void cleanup() { QCOMPARE(common_ProcessRunnerBase::getProcessCount(), 0); }

    void isEmptyAndNotRunningAtFirst()
    {
        const LineRunner runner;
        QVERIFY(!runner.isRunning());
        QVERIFY(runner.getArguments().isEmpty());
        QCOMPARE(runner.getExecutable().filePath(), QString());
        QCOMPARE(runner.getWorkingDirectory(), QString());
        QCOMPARE(runner.exitCode(), 0);
        QCOMPARE(runner.getRefCount(), 0);
    }

    void countsTheRunnersThatAreAlive()
    {
        const LineRunner first;
        QCOMPARE(LineRunner::getProcessCount(), 1);
        {
            LineRunner second;
            QCOMPARE(LineRunner::getProcessCount(), 2);
            setUp(second, words("exit 0"));
            QVERIFY(second.runAndWaitForFinish());
            QCOMPARE(LineRunner::getProcessCount(), 2);
        }
        QCOMPARE(LineRunner::getProcessCount(), 1);
    }

    void argumentsAreSetAddedAndCleared()
    {
        LineRunner runner;
        runner.addArgument(text("a"));
        runner.addArguments({text("b"), text("")});
        QCOMPARE(runner.getArguments(), QStringList({text("a"), text("b"), text("")}));
        runner.setArguments({text("c")});
        QCOMPARE(runner.getArguments(), QStringList(text("c")));
        runner.clearArguments();
        QVERIFY(runner.getArguments().isEmpty());
    }

    void executableIsMadeAbsoluteAsAFileAndKeptAsAText()
    {
        LineRunner runner;
        RecordingObserver observer(&runner);
        runner.setExecutable(QFileInfo(text("no such program")));
        QCOMPARE(runner.getExecutable().filePath(), QDir::currentPath() + text("/no such program"));
        runner.run();
        QCOMPARE(observer.lastExecutable, QDir::currentPath() + text("/no such program"));
        runner.setExecutable(text("no such program"));
        runner.run();
        QCOMPARE(observer.lastExecutable, text("no such program"));
    }

    void tellsTheLifeOfAChildInOrder()
    {
        LineRunner runner;
        RecordingObserver observer(&runner);
        QStringList order;
        observer.then = [&order](const QString& event) { order.append(event); };
        runner.onLine = [&order] { order.append(QStringLiteral("line")); };
        setUp(runner, words("out a\\n err b\\n exit 3"));
        QVERIFY(runWithEventLoop(runner));
        QCOMPARE(order, QStringList({text("started"), text("line"), text("line"),
                                     text("exit code 3"), text("done")}));
        QCOMPARE(observer.lastExecutable, text(KEST_TEST_CHILD));
        QCOMPARE(observer.lastArguments, words("out a\\n err b\\n exit 3"));
        QCOMPARE(runner.exitCode(), 3);
    }

    void observersAreCalledOneAfterTheOtherInTheOrderOfAttachment()
    {
        LineRunner runner;
        QStringList order;
        RecordingObserver first(&runner);
        RecordingObserver second(&runner);
        first.then = [&order](const QString& event) { order.append(text("1 ") + event); };
        second.then = [&order](const QString& event) { order.append(text("2 ") + event); };
        setUp(runner, words("exit 0"));
        QVERIFY(runWithEventLoop(runner));
        QCOMPARE(order, QStringList({text("1 started"), text("2 started"), text("1 exit code 0"),
                                     text("1 done"), text("2 exit code 0"), text("2 done")}));
    }

    void runAndWaitForFinishReturnsWhenAllIsTold()
    {
        LineRunner runner;
        const RecordingObserver observer(&runner);
        setUp(runner, words("lines 1000 55 exit 0"));
        QVERIFY(runner.runAndWaitForFinish());
        QVERIFY(!runner.isRunning());
        QCOMPARE(runner.output.size(), 1000);
        QCOMPARE(observer.lifeCycle(),
                 QStringList({text("started"), text("exit code 0"), text("done")}));
    }

    void normalExitNeedsExitCodeZero_data()
    {
        QTest::addColumn<QStringList>("commands");
        QTest::addColumn<bool>("normal");
        QTest::newRow("0") << words("exit 0") << true;
        QTest::newRow("2") << words("exit 2") << false;
        QTest::newRow("crash") << words("crash") << false;
    }

    void normalExitNeedsExitCodeZero()
    {
        QFETCH(QStringList, commands);
        QFETCH(bool, normal);
        LineRunner runner;
        setUp(runner, commands);
        QVERIFY(runner.runAndWaitForFinish());
        QCOMPARE(runner.normalExit(), normal);
    }

    void crashIsToldFromAnExitCode_data()
    {
        QTest::addColumn<QStringList>("commands");
        QTest::addColumn<bool>("crash");
        QTest::addColumn<int>("code");
        QTest::newRow("0") << words("exit 0") << false << 0;
        QTest::newRow("code 9") << words("exit 9") << false << 9;
        QTest::newRow("signal 9") << words("signal 9") << true << 9;
        QTest::newRow("signal 15") << words("signal 15") << true << 15;
    }

    void crashIsToldFromAnExitCode()
    {
        QFETCH(QStringList, commands);
        QFETCH(bool, crash);
        QFETCH(int, code);
        if (crash) {
            SKIP_WITHOUT_SIGNALS();
        }
        LineRunner runner;
        setUp(runner, commands);
        QVERIFY(!runner.crashExit());
        QVERIFY(runWithEventLoop(runner));
        QCOMPARE(runner.crashExit(), crash);
        QCOMPARE(runner.exitCode(), code);
    }

    void childThatReadsItsInputFindsItEmpty_data()
    {
        QTest::addColumn<bool>("waits");
        QTest::newRow("run") << false;
        QTest::newRow("runAndWaitForFinish") << true;
    }

    void childThatReadsItsInputFindsItEmpty()
    {
        QFETCH(bool, waits);
        LineRunner runner;
        setUp(runner, words("read-input read-input out end\\n"));
        QVERIFY(waits ? runner.runAndWaitForFinish() : runWithEventLoop(runner));
        QCOMPARE(runner.output,
                 QStringList({text("input: 0\n"), text("input: 0\n"), text("end\n")}));
        QVERIFY(runner.normalExit());
    }

    void nextRunFindsItsInputEmptyToo()
    {
        LineRunner runner;
        setUp(runner, words("read-input"));
        QVERIFY(runWithEventLoop(runner));
        QVERIFY(runWithEventLoop(runner));
        QCOMPARE(runner.output, QStringList({text("input: 0\n"), text("input: 0\n")}));
    }

    void startThatFails_data()
    {
        QTest::addColumn<QString>("executable");
        QTest::addColumn<QString>("directory");
        QTest::newRow("no such program") << "/no/such/program"
                                         << "";
        QTest::newRow("not in the path") << "no-such-program"
                                         << "";
        QTest::newRow("not executable") << QFINDTESTDATA("CMakeLists.txt") << "";
        QTest::newRow("a directory") << QDir::tempPath() << "";
        QTest::newRow("no program at all") << ""
                                           << "";
        QTest::newRow("no such working directory") << KEST_TEST_CHILD << "/no/such/directory";
    }

    void startThatFails()
    {
        QFETCH(QString, executable);
        QFETCH(QString, directory);
        LineRunner runner;
        const RecordingObserver observer(&runner);
        runner.setExecutable(executable);
        runner.setWorkingDirectory(directory);
        runner.addArgument(text("an argument"));
        QVERIFY(!runner.run());
        QCOMPARE(
            observer.events,
            QStringList({QStringLiteral("exit code %1").arg(runner.exitCode()), text("failed")}));
        QCOMPARE(observer.lastExecutable, executable);
        QCOMPARE(observer.lastArguments, QStringList(text("an argument")));
        QVERIFY(!observer.lastErrorString.isEmpty());
        QVERIFY(!runner.isRunning());
        QVERIFY(!runner.runAndWaitForFinish());

        runner.setWorkingDirectory(QString());
        setUp(runner, words("out again\\n"));
        QVERIFY(runWithEventLoop(runner));
        QCOMPARE(runner.output, QStringList(text("again\n")));
    }

    void failedStartTellsTheExitCodeThatTheProcessHolds()
    {
        LineRunner runner;
        const RecordingObserver observer(&runner);
        setUp(runner, words("exit 7"));
        QVERIFY(runner.runAndWaitForFinish());
        runner.setExecutable(text("/no/such/program"));
        QVERIFY(!runner.run());
        QCOMPARE(
            observer.events.mid(3),
            QStringList({QStringLiteral("exit code %1").arg(runner.exitCode()), text("failed")}));
    }

    void runWhileRunningIsRefusedAndHarmless()
    {
        QTemporaryDir folder;
        LineRunner runner;
        const RecordingObserver observer(&runner);
        setUp(runner,
              {text("wait-for-file"), folder.filePath(text("go")), text("out"), text("x\\n")});
        QVERIFY(runner.run());
        QVERIFY(runner.isRunning());
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(text("still running")));
        QVERIFY(!runner.run());
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(text("still running")));
        QVERIFY(!runner.runAndWaitForFinish());
        QCOMPARE(observer.events, QStringList(text("started")));
        QFile(folder.filePath(text("go"))).open(QIODevice::WriteOnly);
        QVERIFY(QTest::qWaitFor([&runner] { return !runner.isRunning(); }));
        QCOMPARE(runner.output, QStringList(text("x\n")));
        QCOMPARE(observer.lifeCycle(),
                 QStringList({text("started"), text("exit code 0"), text("done")}));
    }

    void stopProcessAsksToTerminate()
    {
        SKIP_WITHOUT_TERMINATE();
        LineRunner runner;
        const RecordingObserver observer(&runner);
        setUp(runner, words("out up\\n sleep 60000"));
        QVERIFY(runner.run());
        QVERIFY(QTest::qWaitFor([&runner] { return !runner.output.isEmpty(); }));
        QVERIFY(!runner.isStopRequested());
        runner.stopProcess();
        QVERIFY(runner.isStopRequested());
        QVERIFY(QTest::qWaitFor([&runner] { return !runner.isRunning(); }));
        QVERIFY(!runner.normalExit());
        QVERIFY(runner.isStopRequested());
        QCOMPARE(observer.lifeCycle().count(text("done")), 1);
    }

    void requestToStopIsOfOneRunOnly()
    {
        SKIP_WITHOUT_TERMINATE();
        LineRunner runner;
        runner.stopProcess();
        QVERIFY(!runner.isStopRequested());
        setUp(runner, words("sleep 60000"));
        QVERIFY(runner.run());
        runner.stopProcess();
        QVERIFY(QTest::qWaitFor([&runner] { return !runner.isRunning(); }));
        runner.stopProcess();
        QVERIFY(runner.isStopRequested());
        setUp(runner, words("exit 0"));
        QVERIFY(runWithEventLoop(runner));
        QVERIFY(!runner.isStopRequested());
    }

    void stopProcessNeitherWaitsNorKills()
    {
        QTemporaryDir folder;
        LineRunner runner;
        setUp(runner, {text("ignore-terminate"), text("out"), text("up\\n"), text("wait-for-file"),
                       folder.filePath(text("go")), text("out"), text("alive\\n")});
        QVERIFY(runner.run());
        QVERIFY(QTest::qWaitFor([&runner] { return !runner.output.isEmpty(); }));
        runner.stopProcess();
        QTest::qWait(100); // in which nothing may end it
        QVERIFY(runner.isRunning());
        QFile(folder.filePath(text("go"))).open(QIODevice::WriteOnly);
        QVERIFY(QTest::qWaitFor([&runner] { return !runner.isRunning(); }));
        QCOMPARE(runner.output, QStringList({text("up\n"), text("alive\n")}));
        QVERIFY(runner.normalExit());
    }

    void stopProcessWithoutAChildDoesNothing()
    {
        LineRunner runner;
        const RecordingObserver observer(&runner);
        runner.stopProcess();
        QVERIFY(observer.events.isEmpty());
    }

    void secondRunStartsClean()
    {
        LineRunner runner;
        const RecordingObserver observer(&runner);
        setUp(runner, words("out left err over exit 4"));
        QVERIFY(runWithEventLoop(runner));
        setUp(runner, words("out a\\n err b\\n"));
        QVERIFY(runWithEventLoop(runner));
        QCOMPARE(runner.output, QStringList(text("a\n")));
        QCOMPARE(runner.errors, QStringList(text("b\n")));
        QCOMPARE(runner.exitCode(), 0);
        QCOMPARE(observer.lifeCycle().count(text("started")), 2);
        QCOMPARE(observer.lifeCycle().count(text("done")), 2);
    }

    void twoRunnersShareNothing()
    {
        LineRunner first;
        LineRunner second;
        setUp(first, words("out first\\n sleep 20 exit 1"));
        setUp(second, words("out second\\n sleep 20 exit 2"));
        QVERIFY(first.run());
        QVERIFY(second.run());
        QVERIFY(QTest::qWaitFor([&] { return !first.isRunning() && !second.isRunning(); }));
        QCOMPARE(first.output, QStringList(text("first\n")));
        QCOMPARE(second.output, QStringList(text("second\n")));
        QCOMPARE(first.exitCode(), 1);
        QCOMPARE(second.exitCode(), 2);
    }
};

QTEST_GUILESS_MAIN(tst_common_ProcessRunnerBase)
#include "tst_common_ProcessRunnerBase.moc"
