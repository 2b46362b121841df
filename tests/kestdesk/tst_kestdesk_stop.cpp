// SPDX-License-Identifier: MIT
#include "BatchTest.h"
#include "RunEndings.h"

#include <TestRandom.h>
#include <UnloadedClock.h>
#include <sendSignal.h>

#include <QElapsedTimer>

// How runs in the terminal end, and what is left of them.
class tst_kestdesk_stop : public BatchTest
{
    Q_OBJECT

private:
    // As the user does, with Ctrl+C.
    void stop(QProcess& process, RunEnding::Stop stop) const
    {
        if (stop == RunEnding::Stop::None) {
            return;
        }
        waitUntilUp(process);
        QVERIFY(sendSignal(process.processId(), SIGINT));
        if (stop == RunEnding::Stop::Forced) {
            process.setReadChannel(QProcess::StandardError);
            QVERIFY(process.canReadLine() || process.waitForReadyRead(30000)); // it is stopping
            QVERIFY(sendSignal(process.processId(), SIGINT));
        }
    }

private Q_SLOTS:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    void stopEndsTheComponentAndItsFiles_data()
    {
        QTest::addColumn<int>("signal");
        QTest::addColumn<QString>("behaviour");
        QTest::addColumn<int>("times");
        QTest::newRow("Ctrl+C") << int(SIGINT) << "wait" << 1;
        QTest::newRow("terminate") << int(SIGTERM) << "wait" << 1;
        QTest::newRow("terminal closed") << int(SIGHUP) << "wait" << 1;
        QTest::newRow("a child is left") << int(SIGINT) << "forgetful" << 1;
        QTest::newRow("Ctrl+C twice") << int(SIGINT) << "stubborn" << 2;
        QTest::newRow("terminate twice") << int(SIGTERM) << "stubborn" << 2;
        QTest::newRow("Ctrl+C many times") << int(SIGINT) << "stubborn" << 5;
    }

    void stopEndsTheComponentAndItsFiles()
    {
        QFETCH(int, signal);
        QFETCH(QString, behaviour);
        QFETCH(int, times);
        writeMachines();
        model("m.nec", behaviour.toLatin1());
        model("next.nec", "valid");
        QProcess process;
        m_desk->start(process, batch("--parallel m.nec next.nec"));
        waitUntilUp(process);
        QCOMPARE(temporaryFiles().size(), 2); // the copy, and whose it is
        QVERIFY(sendSignal(process.processId(), signal));
        if (times > 1) {
            QVERIFY(!process.waitForFinished(300));
        }
        QElapsedTimer timer;
        timer.start();
        for (int i = 1; i < times; ++i) {
            QVERIFY(sendSignal(process.processId(), signal));
        }
        const Desk::Result result = Desk::resultOf(process);
        QCOMPARE(result.exitCode, 130);
        QVERIFY(timer.elapsed() < 10000);
        QCOMPARE(m_desk->processes().join(QLatin1Char('\n')), QString());
        QCOMPARE(temporaryFiles(), QStringList());
        QCOMPARE(result.errors, text("kestdesk: stopping; once more ends at once\n"));
        QVERIFY2(result.output.contains(text("m.nec: stopped")), qPrintable(result.output));
        QVERIFY(!QFile::exists(m_desk->path("models/next.nec.seen")));
    }

    // The component ends at once; who does not end by itself within the time of grace is killed.
    void whatAStoppedComponentLeavesBehindMayTidyUpFirst_data()
    {
        QTest::addColumn<QString>("behaviour");
        QTest::addColumn<bool>("tidies");
        QTest::newRow("ends by itself") << "clearing" << true;
        QTest::newRow("stays") << "orphaning" << false;
    }

    void whatAStoppedComponentLeavesBehindMayTidyUpFirst()
    {
        QFETCH(QString, behaviour);
        QFETCH(bool, tidies);
        model("m.nec", behaviour.toLatin1());
        QProcess process;
        m_desk->start(process, batch("m.nec"));
        waitUntilUp(process);
        QVERIFY(sendSignal(process.processId(), SIGTERM));
        QCOMPARE(Desk::resultOf(process).exitCode, 130);
        // Not a moment later: nobody ends them any more.
        QCOMPARE(m_desk->processes().join(QLatin1Char('\n')), QString());
        QCOMPARE(QFile::exists(m_desk->path("models/m.nec.tidied")), tidies);
    }

    void hangUpIsIgnoredWhereNohupSaysSo()
    {
        model("m.nec", "wait");
        QProcess process;
        m_desk->setProgram(text("/bin/sh"));
        m_desk->start(process, {text("-c"), text(R"(trap '' HUP; exec "$0" "$@")"), text(KESTDESK),
                                text("--non-interactive"), text("m.nec")});
        waitUntilUp(process);
        QVERIFY(sendSignal(process.processId(), SIGHUP));
        QVERIFY(!process.waitForFinished(300));
        QVERIFY(sendSignal(process.processId(), SIGTERM));
        QCOMPARE(Desk::resultOf(process).exitCode, 130);
    }

    void outcomeFollowsFromTheEnd_data() { addRunEndings(); }

    void outcomeFollowsFromTheEnd()
    {
        QFETCH(int, row);
        const RunEnding& ending = runEndings().at(row);
        prepareRunEnding(ending, *m_desk);
        QProcess process;
        m_desk->start(process, batch(ending.isParallel() ? "--parallel m.nec" : "m.nec"));
        stop(process, ending.stop);
        const Desk::Result result = Desk::resultOf(process);
        const int exitCodes[] = {0, 1, 2, 130}; // by outcome
        QCOMPARE(result.exitCode, exitCodes[static_cast<int>(ending.outcome)]);
        const QString outcome = text("m.nec: ") + RunOutcome::word(ending.outcome);
        QVERIFY2(result.output.endsWith(outcome + text("\n")), qPrintable(result.output));
        const QString reason = result.output.section(QLatin1Char('\n'), -3, -3);
        if (ending.outcome == RunOutcome::Kind::NotStarted) {
            QVERIFY2(result.errors.contains(text(ending.meaning)), qPrintable(result.errors));
        } else if (*ending.meaning == '\0') {
            QVERIFY2(reason.contains(text(" files in ")), qPrintable(result.output));
        } else {
            QVERIFY2(reason.startsWith(text("runkest ")), qPrintable(result.output));
            QVERIFY2(reason.contains(text(ending.meaning)), qPrintable(reason));
        }
    }

    void modelsThatWereNotBegunHaveBeenStopped()
    {
        model("m.nec", "asked-ends 100 0");
        model("next.nec", "valid");
        QProcess process;
        m_desk->start(process, batch("m.nec next.nec"));
        waitUntilUp(process);
        QVERIFY(sendSignal(process.processId(), SIGINT));
        const Desk::Result result = Desk::resultOf(process);
        QVERIFY2(result.output.contains(text("m.nec: valid\n")), qPrintable(result.output));
        QCOMPARE(result.exitCode, 130);
        QVERIFY(!QFile::exists(m_desk->path("models/next.nec.seen")));
    }

    void componentThatSomebodyElseEndsDoesNotKeepTheNextModelFromRunning()
    {
        model("m.nec", "dies 50 15");
        model("next.nec", "valid");
        const Desk::Result result = m_desk->run(batch("m.nec next.nec"));
        QCOMPARE(result.exitCode, 130);
        QVERIFY2(result.output.endsWith(text("2 models: 1 valid, 1 stopped\n")),
                 qPrintable(result.output));
    }

    void componentThatReadsItsInputFindsItEmpty()
    {
        model("m.nec", "input");
        QProcess process;
        m_desk->start(process, batch("m.nec"));
        QCOMPARE(Desk::resultOf(process).exitCode, 0); // its own input stays open
    }

    // The component starts a child that ignores the request and loses its parent. The second Ctrl+C
    // comes while that is given time to end.
    void secondCtrlCEndsAtOnceWhatTheComponentHasLeftBehind()
    {
        model("m.nec", "forgetful");
        QProcess process;
        m_desk->start(process, batch("m.nec"));
        waitUntilUp(process);
        QVERIFY(sendSignal(process.processId(), SIGINT));
        QByteArray output;
        while (!output.contains("m.nec: stopped")) {
            QVERIFY(process.waitForReadyRead(30000));
            output += process.readAllStandardOutput();
        }
        const UnloadedClock clock;
        QVERIFY(sendSignal(process.processId(), SIGINT));
        QCOMPARE(Desk::resultOf(process).exitCode, 130);
        QVERIFY2(clock.elapsed() < 1500, qPrintable(QString::number(clock.elapsed())));
        QCOMPARE(m_desk->processes().join(QLatin1Char('\n')), QString());
    }

    void componentThatCannotBeEndedIsNotWaitedFor()
    {
        writeMachines();
        model("m.nec", "stubborn");
#if defined(__SANITIZE_ADDRESS__)
        m_desk->set("ASAN_OPTIONS", text("verify_asan_link_order=0:detect_leaks=0"));
#endif
        m_desk->set("LD_PRELOAD", text(UNKILLABLE));
        QProcess process;
        m_desk->start(process, batch("--parallel m.nec"));
        waitUntilUp(process);
        QVERIFY(sendSignal(process.processId(), SIGINT));
        QVERIFY(!process.waitForFinished(300));
        QVERIFY(sendSignal(process.processId(), SIGINT));
        QElapsedTimer timer;
        timer.start();
        const Desk::Result result = Desk::resultOf(process);
        QCOMPARE(result.exitCode, 130);
        QVERIFY2(timer.elapsed() < 20000, qPrintable(QString::number(timer.elapsed())));
        QCOMPARE(result.errors, text("kestdesk: stopping; once more ends at once\n"
                                     "kestdesk: runkest cannot be ended and goes on\n"));
        QVERIFY2(result.output.endsWith(text("m.nec: stopped\n")), qPrintable(result.output));
        QCOMPARE(temporaryFiles(), QStringList());
        const QStringList processes = m_desk->processes();
        QCOMPARE(processes.size(), 2);
        Processes::send(SIGKILL, processes);
    }

    void noProcessOrFileIsLeftByStopsAtRandomMoments()
    {
        const int rounds = qEnvironmentVariableIsSet("KEST_FULL_TESTS") ? 100 : 20;
        writeMachines();
        const char* const behaviours[] = {"wait", "valid", "forgetful", "stubborn"};
        QRandomGenerator random = TestRandom::usual(20261121);
        for (int round = 0; round < rounds; ++round) {
            model("m.nec", behaviours[round % 4]);
            QProcess process;
            m_desk->start(process, batch("--component optkest --farm-out m.nec m.nec"));
            process.waitForFinished(int(random.bounded(150)));
            for (int i = 0; i < 20 && process.state() == QProcess::Running; ++i) {
                QVERIFY(sendSignal(process.processId(), i % 2 ? SIGINT : SIGTERM));
                process.waitForFinished(i == 0 ? int(random.bounded(100)) : 1000);
            }
            QCOMPARE(process.state(), QProcess::NotRunning);
            QVERIFY2(process.exitCode() == 130 || process.exitCode() == 0 ||
                         process.exitStatus() == QProcess::CrashExit, // before it watches signals
                     qPrintable(QString::number(process.exitCode())));
            QCOMPARE(m_desk->processes().join(QLatin1Char('\n')), QString());
            QCOMPARE(temporaryFiles(), QStringList());
        }
    }
};

QTEST_GUILESS_MAIN(tst_kestdesk_stop)

#include "tst_kestdesk_stop.moc"
