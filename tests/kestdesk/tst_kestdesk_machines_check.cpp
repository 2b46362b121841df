// SPDX-License-Identifier: MIT
#include "MachinesStage.h"

#include <sendSignal.h>

#include <QElapsedTimer>
#include <QHostInfo>

// Whether "kestdesk machines check" finds out what hosts are good for, in the time that it is
// given.
class tst_kestdesk_machines_check : public QObject, private MachinesStage
{
    Q_OBJECT

private Q_SLOTS:
    void init() { setUp(); }
    void cleanup() { expectNoProcesses(); }

    void checkAsksEachHostOnce()
    {
        writeMachines("127.0.0.2:4\n127.0.0.3:1\n127.0.0.2:2\n");
        host("127.0.0.2", "answer 8");
        host("127.0.0.3", "slow 1");
        const Desk::Result result = machines("check --timeout 30");
        QVERIFY2(result.output.endsWith(text("127.0.0.2: fine: 8 cores for 6 processes\n"
                                             "127.0.0.3: fine: 1 core for 1 process\n")),
                 qPrintable(result.output));
        QVERIFY(result.output.contains(text("in all: 7 processes, hosts: 2")));
        QCOMPARE(result.exitCode, 0);
        QStringList calls = lines(QString::fromUtf8(contentOf(m_desk->path("ssh/log"))));
        calls.sort();
        const QString call = text("-o|BatchMode=yes|-o|ConnectTimeout=30|--|%1|getconf|"
                                  "_NPROCESSORS_ONLN");
        QCOMPARE(calls, QStringList({call.arg(text("127.0.0.2")), call.arg(text("127.0.0.3"))}));
    }

    void checkSaysWhyAHostIsOfNoUse_data()
    {
        QTest::addColumn<QString>("behaviour");
        QTest::addColumn<QString>("line");
        QTest::addColumn<int>("exitCode");
        // clang-format off
        QTest::newRow("refuses")       << "refuse Permission denied (publickey)." << "127.0.0.2: error: Permission denied (publickey)." << 1;
        QTest::newRow("silent")        << "silent"        << "127.0.0.2: error: answers \"\" in place of the number of its cores" << 1;
        QTest::newRow("fails")         << "fail"          << "127.0.0.2: error: %1 ended with exit code 7" << 1;
        QTest::newRow("garbage")       << "answer many"   << "127.0.0.2: error: answers \"many\" in place of the number of its cores" << 1;
        QTest::newRow("no cores")      << "answer 0"      << "127.0.0.2: error: answers \"0\" in place of the number of its cores" << 1;
        QTest::newRow("flood")         << "flood"         << "127.0.0.2: error: answers without end" << 1;
        QTest::newRow("crash")         << "crash"         << "127.0.0.2: error: %1 crashed" << 1;
        QTest::newRow("few cores")     << "answer 2"      << "127.0.0.2: warning: 2 cores for 4 processes" << 0;
        QTest::newRow("much to say")   << QString(text("refuse ") + QString(500, QLatin1Char('x'))) << QString(text("127.0.0.2: error: ") + QString(120, QLatin1Char('x'))) << 1;
        QTest::newRow("greeting")      << "greet 8"       << "127.0.0.2: fine: 8 cores for 4 processes" << 0;
        QTest::newRow("just enough")   << "answer 4"      << "127.0.0.2: fine: 4 cores for 4 processes" << 0;
        // clang-format on
    }

    void checkSaysWhyAHostIsOfNoUse()
    {
        QFETCH(QString, behaviour);
        QFETCH(QString, line);
        QFETCH(int, exitCode);
        writeMachines("127.0.0.2:4\n");
        host("127.0.0.2", behaviour.toLatin1());
        const Desk::Result result = machines("check --timeout=60");
        QCOMPARE(lines(result.output).constLast(),
                 line.replace(text("%1"), m_desk->path("fake ssh")));
        QCOMPARE(result.exitCode, exitCode);
    }

    void hostThatHangsEndsAtTheLimit()
    {
        writeMachines("127.0.0.2\n127.0.0.3\n");
        host("127.0.0.2", "hang");
        host("127.0.0.3", "answer 8");
        QElapsedTimer timer;
        timer.start();
        const Desk::Result result = machines("check --timeout 1");
        QVERIFY(timer.elapsed() < 20000);
        QVERIFY2(result.output.endsWith(text("127.0.0.2: error: no answer within 1 second\n"
                                             "127.0.0.3: fine: 8 cores for 1 process\n")),
                 qPrintable(result.output));
        QCOMPARE(result.exitCode, 1);
        QCOMPARE(m_desk->processes(), QStringList());
    }

    void namesAreLookedUpWithinTheLimitToo()
    {
#if defined(__SANITIZE_ADDRESS__)
        m_desk->set("ASAN_OPTIONS", text("verify_asan_link_order=0:detect_leaks=0"));
#endif
        m_desk->set("LD_PRELOAD", text(FAKE_RESOLVER));
        writeMachines("lost1:1\nunknown1:1\nnode1:1\n");
        host("node1", "answer 8");
        QElapsedTimer timer;
        timer.start();
        const Desk::Result result = machines("check --timeout 1");
        QVERIFY2(timer.elapsed() < 20000, qPrintable(QString::number(timer.elapsed())));
        const QStringList shown = lines(result.output);
        QCOMPARE(shown.value(shown.size() - 3),
                 text("lost1: error: the name does not resolve within 1 second"));
        QVERIFY2(shown.value(shown.size() - 2)
                     .startsWith(text("unknown1: error: the name does not resolve: ")),
                 qPrintable(result.output));
        QCOMPARE(shown.constLast(), text("node1: fine: 8 cores for 1 process"));
        QCOMPARE(result.exitCode, 1);
        QCOMPARE(contentOf(m_desk->path("ssh/log")).count('\n'), 1);
    }

    void thisMachineIsNotAskedOverTheNetwork_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("localhost") << "localhost";
        QTest::newRow("capitals") << "LocalHost";
        QTest::newRow("address") << "127.0.0.1";
        QTest::newRow("IPv6") << "[::1]";
        QTest::newRow("own name") << QHostInfo::localHostName();
    }

    void thisMachineIsNotAskedOverTheNetwork()
    {
        QFETCH(QString, name);
        m_desk->set("KEST_SSH", text("/no/such/ssh"));
        writeMachines(name.toLatin1() + ":1\n");
        const Desk::Result result = machines("check");
        QVERIFY2(
            lines(result.output)
                .constLast()
                .startsWith(
                    QStringLiteral("%1: fine: %2 core").arg(name).arg(QThread::idealThreadCount())),
            qPrintable(result.output));
        QCOMPARE(result.exitCode, 0);
    }

    void addressInBracketsIsAskedWithoutThem()
    {
        writeMachines("[fe80::1]:2\n");
        host("fe80::1", "answer 8");
        const Desk::Result result = machines("check");
        QCOMPARE(lines(result.output).constLast(),
                 text("[fe80::1]: fine: 8 cores for 2 processes"));
        QCOMPARE(result.exitCode, 0);
    }

    void hostIsAskedOnceHoweverItIsWritten()
    {
        writeMachines("[fe80::1]:2\n[FE80::1]:1\n");
        host("fe80::1", "answer 8");
        const Desk::Result result = machines("check");
        QCOMPARE(lines(result.output).constLast(),
                 text("[fe80::1]: fine: 8 cores for 3 processes"));
        QCOMPARE(contentOf(m_desk->path("ssh/log")).count('\n'), 1);
    }

    void hostsThatAreWrongAreNotAsked()
    {
        writeMachines("-oProxyCommand=touch:1\n$(touch x)\n127.0.0.2;x\n127.0.0.3\n");
        host("127.0.0.3", "answer 8");
        const Desk::Result result = machines("check");
        QCOMPARE(result.exitCode, 1);
        QVERIFY(result.output.contains(text("line 1, error: -oProxyCommand=touch:1: ")));
        QCOMPARE(lines(result.output).constLast(), text("127.0.0.3: fine: 8 cores for 1 process"));
        QCOMPARE(contentOf(m_desk->path("ssh/log")).count('\n'), 1);
    }

    void checkNeedsAFileAndAProgram()
    {
        QCOMPARE(machines("check").exitCode, 2);
        writeMachines("127.0.0.2\n");
        for (const QString& program :
             {text("/no/such/ssh"), text("no-such-ssh"), m_desk->path("ssh")}) {
            m_desk->set("KEST_SSH", program);
            const Desk::Result result = machines("check");
            QCOMPARE(result.exitCode, 2);
            QVERIFY2(
                result.output.contains(
                    QStringLiteral("There is no program %1 to reach the hosts with").arg(program)),
                qPrintable(result.output));
        }
    }

    // As where it is not set.
    void emptyProgramIsSsh()
    {
        writeMachines("127.0.0.2\n");
        host("127.0.0.2", "answer 8");
        QVERIFY(QFile::link(text(FAKE_SSH), m_desk->path("home/bin/ssh")));
        m_desk->set("PATH", m_desk->path("home/bin"));
        m_desk->set("KEST_SSH", QString());
        const Desk::Result result = machines("check");
        QCOMPARE(lines(result.output).constLast(), text("127.0.0.2: fine: 8 cores for 1 process"));
        QVERIFY(QFile::remove(m_desk->path("home/bin/ssh")));
        QVERIFY2(machines("check").output.contains(text("There is no program ssh to reach")),
                 "an empty program");
    }

    void manyHostsAreCheckedSeveralAtATime()
    {
        QByteArray content;
        for (int i = 0; i < 64; ++i) {
            const QByteArray name = "127.0.1." + QByteArray::number(i + 1);
            content += name + '\n';
            host(name, "slow 8");
        }
        writeMachines(content);
        QElapsedTimer timer;
        timer.start();
        const Desk::Result result = machines("check --timeout 60");
        QVERIFY(timer.elapsed() < 25000); // one after the other they need 32 s
        QCOMPARE(result.exitCode, 0);
        const QStringList shown = lines(result.output);
        for (int i = 0; i < 64; ++i) {
            QCOMPARE(shown.value(shown.size() - 64 + i),
                     QStringLiteral("127.0.1.%1: fine: 8 cores for 1 process").arg(i + 1));
        }
    }

    void hostsBehindTheSixteenthWait()
    {
        QByteArray content;
        for (int i = 1; i <= 32; ++i) {
            const QByteArray name = "127.0.1." + QByteArray::number(i);
            content += name + '\n';
            host(name, "hang");
        }
        writeMachines(content);
        QProcess process;
        m_desk->start(process, {text("machines"), text("check"), text("--timeout"), text("600")});
        const auto asked = [this] { return contentOf(m_desk->path("ssh/log")).count('\n'); };
        QTRY_COMPARE_WITH_TIMEOUT(asked(), 16, 30000);
        QVERIFY(!process.waitForFinished(300)); // for one too many
        QCOMPARE(asked(), 16);
        QVERIFY(sendSignal(process.processId(), SIGTERM));
        QCOMPARE(Desk::resultOf(process).exitCode, 130);
    }

    void ctrlCEndsTheCheckAtOnce_data()
    {
        QTest::addColumn<int>("signal");
        QTest::newRow("Ctrl+C") << int(SIGINT);
        QTest::newRow("terminate") << int(SIGTERM);
    }

    void ctrlCEndsTheCheckAtOnce()
    {
        QFETCH(int, signal);
        writeMachines("127.0.0.2\n127.0.0.3\n127.0.0.4\n");
        for (const char* const name : {"127.0.0.2", "127.0.0.3", "127.0.0.4"}) {
            host(name, "hang");
        }
        QProcess process;
        m_desk->start(process, {text("machines"), text("check"), text("--timeout"), text("600")});
        QTRY_COMPARE_WITH_TIMEOUT(contentOf(m_desk->path("ssh/log")).count('\n'), 3, 30000);
        QElapsedTimer timer;
        timer.start();
        QVERIFY(sendSignal(process.processId(), signal));
        const Desk::Result result = Desk::resultOf(process);
        QVERIFY(timer.elapsed() < 5000);
        QCOMPARE(result.exitCode, 130);
        QCOMPARE(result.errors, QString());
        QTRY_COMPARE_WITH_TIMEOUT(m_desk->processes(), QStringList(), 2000);
    }

    void endDoesNotWaitForALookup()
    {
#if defined(__SANITIZE_ADDRESS__)
        m_desk->set("ASAN_OPTIONS", text("verify_asan_link_order=0:detect_leaks=0"));
#endif
        m_desk->set("LD_PRELOAD", text(FAKE_RESOLVER));
        writeMachines("lost1\n127.0.0.2\n");
        host("127.0.0.2", "hang");
        QProcess process;
        m_desk->start(process, {text("machines"), text("check"), text("--timeout"), text("600")});
        QTRY_COMPARE_WITH_TIMEOUT(contentOf(m_desk->path("ssh/log")).count('\n'), 1, 30000);
        QElapsedTimer timer;
        timer.start();
        QVERIFY(sendSignal(process.processId(), SIGTERM));
        QCOMPARE(Desk::resultOf(process).exitCode, 130);
        QVERIFY(timer.elapsed() < 5000);
    }
};

QTEST_GUILESS_MAIN(tst_kestdesk_machines_check)
#include "tst_kestdesk_machines_check.moc"
