// SPDX-License-Identifier: MIT
#include <Descendants.h>
#include <DescendantsEnding.h>
#include <OrphanReaper.h>

#include <QCoreApplication>
#include <QEventLoop>
#include <QProcess>
#include <QTemporaryDir>
#include <QThread>
#include <QTimer>
#include <QtTest>

#include <csignal>

#include <sys/prctl.h>

namespace {

bool adoptsOrphans()
{
    int adopts = 0;
    prctl(PR_GET_CHILD_SUBREAPER, &adopts);
    return adopts != 0;
}

// A child that has made a child of its own and left it alone. The number of that one.
pid_t leaveOrphan(const QString& deed)
{
    QProcess shell;
    shell.start(QStringLiteral("/bin/sh"),
                {QStringLiteral("-c"),
                 QStringLiteral("(%1) >/dev/null 2>&1 </dev/null & echo $!").arg(deed)});
    shell.waitForFinished();
    return shell.readAllStandardOutput().trimmed().toInt();
}

bool isThere(pid_t process)
{
    return process > 0 && ::kill(process, 0) == 0;
}

// A process that is nobody's child.
qint64 startDetached()
{
    qint64 process = 0;
    QProcess::startDetached(QStringLiteral("/bin/sleep"), {QStringLiteral("1000")}, QString(),
                            &process);
    return process;
}

void end(qint64 process)
{
    QVERIFY(process > 0);
    ::kill(static_cast<pid_t>(process), SIGKILL);
}

} // namespace

class tst_Descendants : public QObject
{
    Q_OBJECT

private:
    qint64 m_process = 0;

private Q_SLOTS:
    void init() { prctl(PR_SET_CHILD_SUBREAPER, 0); }

    void cleanup()
    {
        if (m_process > 0) {
            end(m_process);
            m_process = 0;
        }
        QTRY_VERIFY(!Descendants::areAlive());
    }

    void nothingChangesWhereOrphansAreLeftAlone()
    {
        bool isCalled = false;
        Descendants::startDetached([&] {
            isCalled = true;
            m_process = startDetached();
        });
        QVERIFY(isCalled);
        QVERIFY(!adoptsOrphans());
        QVERIFY(!Descendants::areAlive());
        QCoreApplication::processEvents();
        QVERIFY(!adoptsOrphans());
    }

    void orphansCountAmongTheProcesses()
    {
        Descendants::adoptOrphans();
        m_process = startDetached();
        QVERIFY(Descendants::areAlive());
    }

    void whatIsStartedApartDoesNot()
    {
        Descendants::adoptOrphans();
        Descendants::startDetached([this] { m_process = startDetached(); });
        QVERIFY(!Descendants::areAlive());
        Descendants::killAll();
        QCOMPARE(::kill(static_cast<pid_t>(m_process), 0), 0);
        QVERIFY(adoptsOrphans());
    }

    void orphanThatHasEndedIsReaped()
    {
        Descendants::adoptOrphans();
        OrphanReaper reaper;
        const pid_t orphan = leaveOrphan(QStringLiteral("sleep 0.2")); // longer than its parent
        QTRY_VERIFY_WITH_TIMEOUT(Descendants::endedChildren().contains(orphan), 60000);
        QVERIFY(isThere(orphan));
        reaper.reap();
        QVERIFY(isThere(orphan)); // somebody in this program might still ask
        reaper.reap();
        QVERIFY(!isThere(orphan));
    }

    void orphansAreReapedFromTheEventLoop()
    {
        Descendants::adoptOrphans();
        OrphanReaper reaper;
        reaper.start();
        const pid_t orphan = leaveOrphan(QStringLiteral("sleep 0.1"));
        QTRY_VERIFY_WITH_TIMEOUT(!isThere(orphan), 60000);
    }

    // However long its owner has no time for it.
    void exitCodesOfOwnProcessesAreNotStolen()
    {
        Descendants::adoptOrphans();
        OrphanReaper reaper;
        QProcess process;
        process.start(QStringLiteral("/bin/sh"), {QStringLiteral("-c"), QStringLiteral("exit 7")});
        QVERIFY(process.waitForStarted());
        const pid_t orphan = leaveOrphan(QStringLiteral("sleep 0.2"));
        while (!Descendants::endedChildren().contains(process.processId()) ||
               !Descendants::endedChildren().contains(orphan)) {
            QThread::msleep(1);
        }
        for (int i = 0; i < 3; ++i) {
            reaper.reap();
        }
        QVERIFY(!isThere(orphan));
        QVERIFY(process.waitForFinished());
        QCOMPARE(process.exitStatus(), QProcess::NormalExit);
        QCOMPARE(process.exitCode(), 7);
    }

    void manyProcessesAndOrphansAtOnceAreKeptApart()
    {
        Descendants::adoptOrphans();
        OrphanReaper reaper;
        reaper.start();
        QTimer often;
        connect(&often, &QTimer::timeout, [&reaper] { reaper.reap(); });
        often.start(1);
        for (int i = 0; i < 100; ++i) {
            QProcess process;
            QEventLoop loop;
            connect(&process, qOverload<int, QProcess::ExitStatus>(&QProcess::finished), &loop,
                    &QEventLoop::exit);
            process.start(QStringLiteral("/bin/sh"),
                          {QStringLiteral("-c"), QStringLiteral("true & true & exit %1").arg(i)});
            QCOMPARE(loop.exec(), i);
            QCOMPARE(process.exitStatus(), QProcess::NormalExit);
        }
        QTRY_COMPARE_WITH_TIMEOUT(Descendants::endedChildren(), QSet<qint64>(), 60000);
    }

    void whatIsLeftGetsTimeToEnd()
    {
        Descendants::adoptOrphans();
        DescendantsEnding ending;
        QSignalSpy ended(&ending, &DescendantsEnding::ended);
        const QTemporaryDir folder;
        const QString file = folder.filePath(QStringLiteral("tidied"));
        leaveOrphan(QStringLiteral("sleep 0.2; echo > '%1'").arg(file));
        ending.start(60000);
        QVERIFY(ending.isActive());
        QTRY_COMPARE_WITH_TIMEOUT(ended.size(), 1, 30000);
        QVERIFY(QFile::exists(file));
        QVERIFY(!Descendants::areAlive());
        QVERIFY(!ending.isActive());
    }

    void whatDoesNotEndIsKilled()
    {
        Descendants::adoptOrphans();
        DescendantsEnding ending;
        QSignalSpy ended(&ending, &DescendantsEnding::ended);
        leaveOrphan(QStringLiteral("sleep 1000"));
        ending.start(100);
        QTRY_COMPARE_WITH_TIMEOUT(ended.size(), 1, 30000);
        QVERIFY(!Descendants::areAlive());
    }

    void hurryKillsAtOnce()
    {
        Descendants::adoptOrphans();
        DescendantsEnding ending;
        QSignalSpy ended(&ending, &DescendantsEnding::ended);
        leaveOrphan(QStringLiteral("sleep 1000"));
        ending.start(600000);
        QVERIFY(!ended.wait(100));
        ending.hurry();
        QTRY_COMPARE_WITH_TIMEOUT(ended.size(), 1, 30000);
        QVERIFY(!Descendants::areAlive());
    }

    void nothingLeftIsToldFromTheEventLoop()
    {
        DescendantsEnding ending;
        QSignalSpy ended(&ending, &DescendantsEnding::ended);
        ending.start(600000);
        QCOMPARE(ended.size(), 0);
        QTRY_COMPARE_WITH_TIMEOUT(ended.size(), 1, 30000);
    }

    void orphansAreAdoptedWhileAMessageIsShownInstead()
    {
        Descendants::adoptOrphans();
        Descendants::startDetached([this] {
            QVERIFY(!adoptsOrphans());
            QEventLoop message;
            QTimer::singleShot(50, &message, &QEventLoop::quit);
            message.exec();
            QVERIFY(adoptsOrphans());
            m_process = startDetached();
        });
        QVERIFY(Descendants::areAlive());
    }
};

QTEST_GUILESS_MAIN(tst_Descendants)

#include "tst_Descendants.moc"
