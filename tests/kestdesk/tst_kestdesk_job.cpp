// SPDX-License-Identifier: MIT
#include "BatchTest.h"

#include <KEST_binfiles.h>

#include <csignal>
#include <vector>

// Parallel and farmed-out runs in a job of Slurm, whose hosts the components use by themselves.
class tst_kestdesk_job : public BatchTest
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        setUp();
        m_desk->set("SLURM_JOB_ID", text("17"));
        m_desk->set("SLURM_JOB_NODELIST", text("node[1-2]"));
        m_desk->set("SLURM_TASKS_PER_NODE", text("4(x2)"));
    }

    void cleanup() { tearDown(); }

    void runStartsWithoutAHostInTheFile_data()
    {
        QTest::addColumn<QByteArray>("file"); // empty: there is none
        QTest::addColumn<QByteArray>("words");
        const QByteArray none;
        const QByteArray ofUser = "user/machines.kest";
        const QByteArray installed = "home/shared/mpi/machines.kest";
        // clang-format off
        QTest::newRow("no file")                   << none      << QByteArray("--parallel");
        QTest::newRow("no file, farmed")           << none      << QByteArray("--component optkest --farm-out");
        QTest::newRow("new installation")          << installed << QByteArray("--parallel");
        QTest::newRow("new installation, farmed")  << installed << QByteArray("--component optkest --farm-out");
        QTest::newRow("the user names none")       << ofUser    << QByteArray("--parallel");
        // clang-format on
    }

    void runStartsWithoutAHostInTheFile()
    {
        QFETCH(QByteArray, file);
        QFETCH(QByteArray, words);
        const QByteArray comment = "# no host\n";
        if (!file.isEmpty()) {
            writeFile(m_desk->path(file.constData()), comment);
        }
        model("m.nec", "valid");
        const Desk::Result result = m_desk->run(batch(words + " m.nec"));
        QCOMPARE(result.errors, QString());
        QCOMPARE(result.exitCode, 0);
        QVERIFY(seenArguments("m.nec").contains(text("--machines-file")));
        QVERIFY(seenLines("m.nec").contains(text("SLURM_JOB_NODELIST=node[1-2]")));
        const QByteArray copy = contentOf(m_desk->path("models/m.nec.machines"));
        QVERIFY2(copy.startsWith("# "), copy.constData());
        QCOMPARE(copy.count('\n'), 1);
        QCOMPARE(contentOf(m_desk->path("user/machines.kest")),
                 file.startsWith("user") ? comment : QByteArray());
        QCOMPARE(userFiles().contains(text("machines.kest")), file.startsWith("user"));
    }

    void fileWithHostsIsGivenAsItIs()
    {
        writeMachines();
        model("m.nec", "valid");
        QCOMPARE(m_desk->run(batch("--parallel m.nec")).exitCode, 0);
        QCOMPARE(contentOf(m_desk->path("models/m.nec.machines")), QByteArray("localhost:2\n"));
    }

    void jobThatCannotBeUsedKeepsTheRunFromStarting_data()
    {
        QTest::addColumn<QByteArray>("words");
        QTest::addColumn<QByteArray>("file"); // empty: there is none
        QTest::newRow("parallel") << QByteArray("--parallel") << QByteArray("# no host\n");
        QTest::newRow("farmed") << QByteArray("--component optkest --farm-out")
                                << QByteArray("# no host\n");
        QTest::newRow("without a file") << QByteArray("--parallel") << QByteArray();
        QTest::newRow("with a host") << QByteArray("--parallel") << QByteArray("node1\n");
    }

    void jobThatCannotBeUsedKeepsTheRunFromStarting()
    {
        QFETCH(QByteArray, words);
        QFETCH(QByteArray, file);
        if (!file.isEmpty()) {
            writeFile(m_desk->path("user/machines.kest"), file);
        }
        m_desk->set("SLURM_TASKS_PER_NODE", text("4(x3)"));
        model("m.nec", "valid");
        const Desk::Result result = m_desk->run(batch(words + " m.nec"));
        QVERIFY2(result.errors.contains(
                     text("kestdesk: the Slurm job 17 cannot be used: SLURM_TASKS_PER_NODE is "
                          "'4(x3)', which is for 3 hosts and not for the 2 of SLURM_JOB_NODELIST "
                          "(unset SLURM_JOB_ID to run without the job)")),
                 qPrintable(result.errors));
        QCOMPARE(result.exitCode, 2);
        QVERIFY(!QFile::exists(m_desk->path("models/m.nec.seen")));
        QCOMPARE(contentOf(m_desk->path("user/machines.kest")), file);
    }

    void jobPlaysNoPart_data()
    {
        QTest::addColumn<QByteArray>("words");
        QTest::addColumn<QStringList>("options");
        QTest::newRow("one process") << QByteArray() << QStringList();
        QTest::newRow("this machine alone")
            << QByteArray("--parallel") << QStringList(text("Kest.ParallelAuthenticMethod=2"));
    }

    void jobPlaysNoPart()
    {
        QFETCH(QByteArray, words);
        QFETCH(QStringList, options);
        writeFile(m_desk->path("user/machines.kest"), "# no host\n");
        m_desk->set("SLURM_JOB_NODELIST", text("damaged["));
        setOptions(options);
        model("m.nec", "valid");
        QCOMPARE(m_desk->run(batch(words + " m.nec")).exitCode, 0);
    }

    // On the remote host there is no such job.
    void remoteRunNeedsAFileWithHosts()
    {
        writeFile(m_desk->path("user/machines.kest"), "# no host\n");
        setOptions({text("Kest.RemoteHost=host")});
        model("m.nec", "valid");
        const Desk::Result result = m_desk->run(batch("--parallel --remote m.nec"));
        QVERIFY2(result.errors.contains(text("machines.kest names no host")),
                 qPrintable(result.errors));
        QCOMPARE(result.exitCode, 2);
    }

    void placeholderThatAKilledProgramLeftGoes()
    {
        model("m.nec", "valid");
        QCOMPARE(m_desk->run(batch("--parallel m.nec")).exitCode, 0);
        const QByteArray placeholder = contentOf(m_desk->path("models/m.nec.machines"));
        writeFile(m_desk->path("user/machines.kest"), placeholder);
        QCOMPARE(m_desk->run(batch("--parallel m.nec")).exitCode, 0);
        QVERIFY(!userFiles().contains(text("machines.kest")));
    }

    void placeholderOfAnotherProgramIsNotUsed_data()
    {
        QTest::addColumn<QByteArray>("placeholder");
        QTest::newRow("just made") << QByteArray();
        QTest::newRow("written") << QByteArray("# Made by kestdesk while it set up a run in a "
                                               "Slurm job. It names no host and may be deleted.\n");
    }

    // The run waits until the other program has removed its file. What had been there during the
    // wait is no reason for a message.
    void placeholderOfAnotherProgramIsNotUsed()
    {
        QFETCH(QByteArray, placeholder);
        const QString machines = m_desk->path("user/machines.kest");
        uint64_t lock = 0;
        QCOMPARE(KEST_binfiles_set_lock_hard(machines.toStdWString().c_str(), 0, &lock),
                 int(KEST_BINFILES_LOCK_TAKEN));
        writeFile(machines, placeholder);
        model("m.nec", "valid");
        QProcess process;
        m_desk->start(process, batch("--parallel m.nec"));
        constexpr int longEnoughForARun = 2000; // milliseconds
        QVERIFY(!process.waitForFinished(longEnoughForARun));
        QVERIFY(!QFile::exists(m_desk->path("models/m.nec.seen")));
        QVERIFY(QFile::remove(machines));
        QCOMPARE(KEST_binfiles_remove_lock(machines.toStdWString().c_str(), lock), 0);
        const Desk::Result result = Desk::resultOf(process);
        QCOMPARE(result.errors, QString());
        QCOMPARE(result.exitCode, 0);
        QVERIFY(!userFiles().contains(text("machines.kest")));
    }

    // A folder of that name keeps the lock from being made.
    void lockThatCannotBeMadeIsNotWaitedFor()
    {
        QVERIFY(QDir().mkpath(m_desk->path("user/machines.kest.kestlock")));
        model("m.nec", "valid");
        QElapsedTimer time;
        time.start();
        const Desk::Result result = m_desk->run(batch("--parallel m.nec"));
        QVERIFY2(result.errors.contains(text("No machines file could be found.")),
                 qPrintable(result.errors));
        QCOMPARE(result.exitCode, 2);
        QVERIFY2(time.elapsed() < 9000, QByteArray::number(time.elapsed()).constData());
    }

    // Each finds no file, and none removes the placeholder of another.
    void runsAtOnceDoNotDisturbEachOther()
    {
        constexpr int count = 6;
        constexpr int rounds = 3;
        for (int round = 0; round < rounds; ++round) {
            std::vector<std::unique_ptr<QProcess>> processes;
            for (int i = 0; i < count; ++i) {
                const QByteArray name = 'm' + QByteArray::number(i) + ".nec";
                model(name.constData(), "valid");
                processes.push_back(std::make_unique<QProcess>());
                m_desk->start(*processes.back(), batch("--parallel " + name));
            }
            for (const auto& process : processes) {
                const Desk::Result result = Desk::resultOf(*process);
                QVERIFY2(!result.errors.contains(text("achines file")), qPrintable(result.errors));
                QCOMPARE(result.exitCode, 0);
            }
            QVERIFY(!userFiles().contains(text("machines.kest")));
        }
    }

private:
    QStringList userFiles() const
    {
        return QDir(m_desk->path("user")).entryList(QDir::Files | QDir::Hidden);
    }
};

QTEST_GUILESS_MAIN(tst_kestdesk_job)
#include "tst_kestdesk_job.moc"
