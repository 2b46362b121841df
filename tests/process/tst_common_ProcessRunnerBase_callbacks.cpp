// SPDX-License-Identifier: MIT
#include "LineRunner.h"
#include "OwnProcess.h"

#include <RecordingObserver.h>
#include <SystemSkips.h>

#include <common_ProcessRunnerBase.h>

#include <QElapsedTimer>
#include <QEventLoop>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QThread>
#include <QTimer>
#include <QtTest>

#include <memory>
#include <vector>

class tst_common_ProcessRunnerBase_callbacks : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { qunsetenv(logVariable); }

    void cleanup() { QCOMPARE(common_ProcessRunnerBase::getProcessCount(), 0); }

    void runnerReleasedInACallbackIsSafe_data()
    {
        QTest::addColumn<QString>("event");
        QTest::newRow("started") << "started";
        QTest::newRow("failed") << "failed";
        QTest::newRow("message") << "message";
        QTest::newRow("exit code") << "exit code 0";
        QTest::newRow("done") << "done";
    }

    void runnerReleasedInACallbackIsSafe()
    {
        QFETCH(QString, event);
        QTemporaryDir folder;
        common_ActivePtr<LineRunner> runner(new LineRunner);
        RecordingObserver observer(runner.get());
        int lines = 0;
        runner->onLine = [&] {
            ++lines;
            if (event == text("message")) {
                runner.reset();
            }
        };
        observer.then = [&](const QString& told) {
            if (told == event) {
                runner.reset();
            }
        };
        if (event == text("failed")) {
            runner->setExecutable(text("/no/such/program"));
        } else {
            setUp(*runner, words("out a\\nb\\n exit 0"));
        }
        runner->run();
        QVERIFY(QTest::qWaitFor([&] { return runner.isNull(); }));
        QVERIFY(QTest::qWaitFor([] { return OwnProcess::children() == 0; }));
        QCOMPARE(LineRunner::getProcessCount(), 0);
        QCOMPARE(lines, event == text("message")                                ? 1
                        : event == text("done") || event == text("exit code 0") ? 2
                                                                                : 0);
    }

    // Its signal may still be on the way to other receivers. QProcess itself tells when it goes.
    void processOfARunnerReleasedInACallbackIsLeftToTheEventLoop()
    {
        static int gone = 0;
        gone = 0;
        const QtMessageHandler before =
            qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString& told) {
                gone += told.contains(text("Destroyed while process")) ? 1 : 0;
            });
        common_ActivePtr<LineRunner> runner(new LineRunner);
        int goneInTheCallback = -1;
        runner->onLine = [&] {
            QMetaObject::invokeMethod(
                this, [&goneInTheCallback] { goneInTheCallback = gone; }, Qt::QueuedConnection);
            runner.reset();
        };
        setUp(*runner, words("ignore-terminate out a\\n sleep 60000"));
        const bool started = runner->run();
        QEventLoop loop; // QTest::qWaitFor() would see to deletions before anything else
        QTimer poll;
        connect(&poll, &QTimer::timeout, &loop, [&loop] {
            if (gone > 0) {
                loop.quit();
            }
        });
        poll.start(1);
        QTimer::singleShot(10000, &loop, &QEventLoop::quit);
        loop.exec();
        qInstallMessageHandler(before);
        QVERIFY(started);
        QCOMPARE(gone, 1);
        QCOMPARE(goneInTheCallback, 0);
        QCOMPARE(OwnProcess::children(), 0);
    }

    void runnerReleasedWhileItsOwnerWaitsIsSafe()
    {
        common_ActivePtr<LineRunner> runner(new LineRunner);
        runner->onLine = [&runner] { runner.reset(); };
        setUp(*runner, words("out a\\nb\\n exit 0"));
        QVERIFY(runner->runAndWaitForFinish());
        QVERIFY(runner.isNull());
        QCOMPARE(LineRunner::getProcessCount(), 0);
        QTest::qWait(0); // sees to what is to be deleted
    }

    void temporaryFilesGoWhenTheRunnerIsReleasedInTheLastCallback()
    {
        QTemporaryDir folder;
        const QString file = folder.filePath(text("machines"));
        common_ActivePtr<LineRunner> runner(new LineRunner);
        RecordingObserver observer(runner.get());
        observer.then = [&](const QString& told) {
            if (told == text("done")) {
                runner.reset();
            }
        };
        setUp(*runner, {text("touch"), file});
        runner->setTemporaryFilenames({file});
        QVERIFY(runner->run());
        QVERIFY(QTest::qWaitFor([&] { return runner.isNull(); }));
        QVERIFY(!QFile::exists(file));
    }

    void observerMayStopObservingInEveryCallback_data()
    {
        QTest::addColumn<QString>("event");
        QTest::newRow("started") << "started";
        QTest::newRow("exit code") << "exit code 0";
        QTest::newRow("done") << "done";
    }

    void observerMayStopObservingInEveryCallback()
    {
        QFETCH(QString, event);
        LineRunner runner;
        RecordingObserver first(&runner);
        const RecordingObserver second(&runner);
        first.then = [&](const QString& told) {
            if (told == event) {
                first.stopObserving();
            }
        };
        setUp(runner, words("exit 0"));
        QVERIFY(runWithEventLoop(runner));
        QCOMPARE(second.events.size(), 3);
        const QStringList told = {text("started"), text("exit code 0"), text("done")};
        // The end is told to an observer in two calls, whatever it does in the first.
        QCOMPARE(first.events, event == text("started") ? QStringList(told.mid(0, 1)) : told);
    }

    void observerMayDestroyItselfAtTheEnd()
    {
        LineRunner runner;
        auto observer = std::make_unique<RecordingObserver>(&runner);
        const RecordingObserver second(&runner);
        observer->then = [&observer](const QString& event) {
            if (event == text("done")) {
                observer.reset();
            }
        };
        setUp(runner, words("exit 0"));
        QVERIFY(runWithEventLoop(runner));
        QCOMPARE(second.events.last(), text("done"));
    }

    void nextRunMayBeStartedInTheLastCallback()
    {
        LineRunner runner;
        RecordingObserver first(&runner);
        const RecordingObserver second(&runner);
        bool wasRunning = true;
        first.then = [&](const QString& event) {
            if (event == text("done")) {
                wasRunning = runner.isRunning();
                first.then = [](const QString&) {};
                runner.setArguments(words("out again\\n exit 5"));
                QVERIFY(runner.run());
            }
        };
        setUp(runner, words("out once\\n exit 6"));
        QVERIFY(runner.run());
        QVERIFY(QTest::qWaitFor([&first] { return first.lifeCycle().size() == 6; }));
        QVERIFY(!wasRunning);
        QCOMPARE(runner.output, QStringList({text("once\n"), text("again\n")}));
        // The second observer hears of the next start before it hears of the first end, and the
        // exit code that it hears then is still the first.
        QCOMPARE(second.lifeCycle(),
                 QStringList({text("started"), text("started"), text("exit code 6"), text("done"),
                              text("exit code 5"), text("done")}));
    }

    void eventLoopInACallbackLosesNothing()
    {
        LineRunner runner;
        const RecordingObserver observer(&runner);
        int depth = 0;
        runner.onLine = [&] {
            if (depth == 0 && runner.output.size() % 500 == 1) {
                ++depth;
                QTest::qWait(5); // an event loop of its own
                --depth;
            }
        };
        setUp(runner, words("lines 3000 55 sleep 20 lines 3000 55"));
        QVERIFY(runner.run());
        QVERIFY(QTest::qWaitFor([&observer] { return observer.events.contains(text("done")); }));
        QCOMPARE(runner.output.size(), 6000);
        for (int i = 0; i < 6000; ++i) {
            QVERIFY(runner.output[i].startsWith(QString::number(i % 3000) + QLatin1Char('.')));
        }
    }

    void destructionEndsTheChildAndTellsNobody()
    {
        auto runner = std::make_unique<LineRunner>();
        const RecordingObserver observer(runner.get());
        setUp(*runner, words("sleep 60000"));
        QVERIFY(runner->run());
        QElapsedTimer timer;
        timer.start();
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(text("Destroyed while process")));
        runner.reset();
        QVERIFY(timer.elapsed() < 10000);
        QCOMPARE(OwnProcess::children(), 0);
        QCOMPARE(observer.events, QStringList(text("started")));
    }

    void destructionAsksTheChildToTerminate()
    {
        SKIP_WITHOUT_TERMINATE();
        common_ActivePtr<LineRunner> runner(new LineRunner);
        RecordingObserver observer(runner.get());
        observer.then = [&runner](const QString&) { runner.reset(); };
        setUp(*runner, words("sleep 60000"));
        QVERIFY(runner->run());
        QVERIFY(runner.isNull());
        // Without an event loop nothing else ends it.
        QElapsedTimer timer;
        timer.start();
        while (OwnProcess::children(false) > 0 && timer.elapsed() < 30000) {
            QThread::msleep(1);
        }
        QCOMPARE(OwnProcess::children(false), 0);
        QVERIFY(QTest::qWaitFor([] { return OwnProcess::children() == 0; }));
    }

    void grandchildOutlivesTheChildAndIsNotHeard()
    {
        const QTemporaryDir folder;
        const QString go = folder.filePath(text("go"));
        LineRunner runner;
        const RecordingObserver observer(&runner);
        setUp(runner, {text("leave-grandchild"), text("late\\n"), go, text("out"), text("a\\n"),
                       text("exit"), text("0")});
        QVERIFY(runWithEventLoop(runner));
        QCOMPARE(observer.lifeCycle().constLast(), text("done"));
        QVERIFY(QFile(go).open(QIODevice::WriteOnly));
        QTRY_VERIFY_WITH_TIMEOUT(!QFile::exists(go), 30000); // it has written
        QTest::qWait(20);                                    // in which nothing may come
        QCOMPARE(runner.output, QStringList(text("a\n")));
    }

    void hidingTheConsoleIsHarmless()
    {
        LineRunner runner;
        runner.hideConsole();
        setUp(runner, words("out a\\n"));
        QVERIFY(runWithEventLoop(runner));
        QCOMPARE(runner.output.size(), 1);
    }

    void manyRunsLeaveNoDescriptorAndNoZombie()
    {
        SKIP_UNDER_WINE("handles are not counted, and one of many starts is refused");
        const auto runOnce = [] {
            LineRunner runner;
            setUp(runner, words("out x\\n exit 0"));
            QVERIFY(runWithEventLoop(runner));
            QCOMPARE(runner.output.size(), 1);
        };
        runOnce(); // what Qt opens once and for all
        const int before = OwnProcess::openDescriptors();
        for (int i = 0; i < 200; ++i) {
            runOnce();
        }
        std::vector<std::unique_ptr<LineRunner>> runners;
        for (int i = 0; i < 50; ++i) {
            runners.push_back(std::make_unique<LineRunner>());
            setUp(*runners.back(),
                  {text("out"), QString::number(i) + text("\\n"), text("sleep"), text("100")});
            QVERIFY(runners.back()->run());
        }
        for (int i = 0; i < 50; ++i) {
            QVERIFY(QTest::qWaitFor([&] { return !runners[std::size_t(i)]->isRunning(); }, 20000));
            QCOMPARE(runners[std::size_t(i)]->output, QStringList(QString::number(i) + text("\n")));
        }
        runners.clear();
        QCOMPARE(OwnProcess::openDescriptors(), before);
        QCOMPARE(OwnProcess::children(), 0);
    }
};

QTEST_GUILESS_MAIN(tst_common_ProcessRunnerBase_callbacks)
#include "tst_common_ProcessRunnerBase_callbacks.moc"
