// SPDX-License-Identifier: MIT
#include "BatchTest.h"

#include <SpecialFile.h>
#include <SystemSkips.h>

#include <QSet>

#include <vector>

// The machines file of runs in the terminal, and their copies of it.
class tst_kestdesk_machines_file : public BatchTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    void temporaryFilesGoWhenTheRunEnds_data()
    {
        QTest::addColumn<QString>("behaviour");
        QTest::addColumn<int>("exitCode");
        QTest::newRow("valid") << "valid" << 0;
        QTest::newRow("fault") << "fault" << 1;
        QTest::newRow("crash") << "crash" << 1;
    }

    void temporaryFilesGoWhenTheRunEnds()
    {
        QFETCH(QString, behaviour);
        QFETCH(int, exitCode);
        writeMachines();
        model("m.nec", behaviour.toLatin1());
        QCOMPARE(m_desk->run(batch("--parallel m.nec")).exitCode, exitCode);
        QCOMPARE(contentOf(m_desk->path("models/m.nec.machines")), QByteArray("localhost:2\n"));
        QCOMPARE(temporaryFiles(), QStringList());
    }

    void temporaryFilesGoWhenTheComponentCannotBeStarted()
    {
        writeMachines();
        const QString program = m_desk->path("home/bin/runkest");
        QVERIFY(QFile::remove(program));
        writeFile(program, "#!/no/such/interpreter\n");
        QVERIFY(QFile::setPermissions(program, QFile::ReadOwner | QFile::ExeOwner));
        model("m.nec", "valid");
        const Desk::Result result = m_desk->run(batch("--parallel m.nec"));
        QCOMPARE(result.exitCode, 2);
        QVERIFY2(result.errors.contains(text("cannot start ") + program),
                 qPrintable(result.errors));
        QVERIFY2(!result.errors.contains(text("QProcess")), qPrintable(result.errors));
        QVERIFY(result.output.contains(text("m.nec: could not start")));
        QCOMPARE(temporaryFiles(), QStringList());
    }

    void temporaryFilesGoWhenTheSetUpFailsHalfway()
    {
        writeMachines();
        model("m.nec", "valid");
        const Desk::Result result =
            m_desk->run(batch("--component optkest --farm-out --remote m.nec m.nec"));
        QCOMPARE(result.exitCode, 2);
        QVERIFY2(result.errors.startsWith(text("No remote host argument specified\n")),
                 qPrintable(result.errors));
        QVERIFY(result.errors.contains(text("kestdesk: optkest was not started\n")));
        QVERIFY(result.output.endsWith(text("2 models: 2 could not start\n")));
        QCOMPARE(temporaryFiles(), QStringList());
        QVERIFY(!QFile::exists(m_desk->path("models/m.nec.seen")));
    }

    // By "kill -9", which leaves nobody time for anything.
    void whatAKilledProgramLeavesIsClearedAtTheNextStart()
    {
        SKIP_ON_WINDOWS("components end with the program that has started them");
        writeMachines();
        model("m.nec", "wait");
        model("next.nec", "valid");
        QProcess process;
        m_desk->start(process, batch("--parallel m.nec"));
        waitUntilUp(process);
        process.kill();
        QVERIFY(process.waitForFinished());
        QCOMPARE(temporaryFiles().size(), 2);

        // The component goes on with its copy.
        QCOMPARE(m_desk->run(batch("next.nec")).exitCode, 0);
        QCOMPARE(temporaryFiles().size(), 2);
        const QStringList components = m_desk->processes();
        QCOMPARE(components.size(), 1);
        Processes::send(SIGKILL, components);
        QTRY_COMPARE(m_desk->processes(), QStringList());
        QCOMPARE(m_desk->run(batch("next.nec")).exitCode, 0);
        QCOMPARE(temporaryFiles(), QStringList());
    }

    void copyOfLongAgoIsNeverUsed_data()
    {
        QTest::addColumn<int>("free"); // names, of 1000
        QTest::newRow("most names are free") << 900;
        QTest::newRow("half") << 500;
        QTest::newRow("few") << 150;
    }

    void copyOfLongAgoIsNeverUsed()
    {
        QFETCH(int, free);
        writeMachines();
        const auto copy = [this](int number) {
            return m_desk->path(text("user/gui_tmp_machfile_%1").arg(number));
        };
        for (int number = free; number < 1000; ++number) {
            writeFile(copy(number), "long.ago:2\n");
        }
        model("m.nec", "valid");
        for (int round = 0; round < 5; ++round) {
            const Desk::Result result = m_desk->run(batch("--parallel m.nec"));
            QCOMPARE(result.errors, QString());
            QCOMPARE(result.exitCode, 0);
            QCOMPARE(contentOf(m_desk->path("models/m.nec.machines")), QByteArray("localhost:2\n"));
        }
        for (int number = free; number < 1000; ++number) {
            QCOMPARE(contentOf(copy(number)), QByteArray("long.ago:2\n"));
            QVERIFY(QFile::remove(copy(number)));
        }
    }

    void withoutAFreeNameTheRunDoesNotStart()
    {
        writeMachines();
        for (int number = 0; number < 1000; ++number) {
            writeFile(m_desk->path(text("user/gui_tmp_machfile_%1").arg(number)), "long.ago:2\n");
        }
        model("m.nec", "valid");
        const Desk::Result result = m_desk->run(batch("--parallel m.nec"));
        QCOMPARE(result.exitCode, 2);
        QVERIFY2(result.errors.contains(text("gui_tmp_machfile_0 to gui_tmp_machfile_999 in ") +
                                        m_desk->path("user")),
                 qPrintable(result.errors));
        QVERIFY(!QFile::exists(m_desk->path("models/m.nec.seen")));
        QCOMPARE(temporaryFiles().size(), 1000);
        const QStringList files = temporaryFiles();
        for (const QString& name : files) {
            QVERIFY(QFile::remove(m_desk->path(text("user/") + name)));
        }
    }

    void runsAtOnceHaveACopyEach()
    {
        SKIP_WITHOUT_TERMINATE();
        writeMachines();
        for (int number = 0; number < 900; ++number) { // they come close to each other
            writeFile(m_desk->path(text("user/gui_tmp_machfile_%1").arg(number)), "long.ago:2\n");
        }
        constexpr int count = 8;
        std::vector<std::unique_ptr<QProcess>> processes;
        for (int i = 0; i < count; ++i) {
            const QByteArray name = 'm' + QByteArray::number(i) + ".nec";
            model(name.constData(), "wait");
            processes.push_back(std::make_unique<QProcess>());
            m_desk->start(*processes.back(), batch("--parallel " + name));
        }
        QSet<QString> copies;
        for (int i = 0; i < count; ++i) {
            waitUntilUp(*processes[std::size_t(i)]);
            const QByteArray name = 'm' + QByteArray::number(i) + ".nec";
            const QStringList seen = seenArguments(name.constData());
            copies.insert(seen.value(seen.indexOf(text("--machines-file")) + 1));
            QCOMPARE(contentOf(m_desk->path(text("models/m%1.nec.machines").arg(i))),
                     QByteArray("localhost:2\n"));
        }
        QCOMPARE(copies.size(), count);
        for (int i = 0; i < count; ++i) {
            for (const QString& copy : qAsConst(copies)) {
                QVERIFY2(QFile::exists(copy), qPrintable(copy));
            }
            const QByteArray name = 'm' + QByteArray::number(i) + ".nec";
            const QStringList seen = seenArguments(name.constData());
            copies.remove(seen.value(seen.indexOf(text("--machines-file")) + 1));
            processes[std::size_t(i)]->terminate();
            QCOMPARE(Desk::resultOf(*processes[std::size_t(i)]).exitCode, 130);
        }
        QCOMPARE(temporaryFiles().size(), 900);
        const QStringList files = temporaryFiles();
        for (const QString& name : files) {
            QVERIFY(QFile::remove(m_desk->path(text("user/") + name)));
        }
    }

    void machinesFileWithoutHostsIsNamed_data()
    {
        QTest::addColumn<QByteArray>("command");
        QTest::addColumn<QByteArray>("file");
        // clang-format off
        QTest::newRow("the user's")         << QByteArray("--parallel")                       << QByteArray("user/machines.kest");
        QTest::newRow("the installation's") << QByteArray("--parallel")                       << QByteArray("home/shared/mpi/machines.kest");
        QTest::newRow("farmed")             << QByteArray("--component optkest --farm-out")   << QByteArray("user/machines.kest");
        QTest::newRow("farmed, parallel")   << QByteArray("--component optkest --farm-out --parallel") << QByteArray("user/machines.kest");
        // clang-format on
    }

    void machinesFileWithoutHostsIsNamed()
    {
        QFETCH(QByteArray, command);
        QFETCH(QByteArray, file);
        const QString path = m_desk->path(file.constData());
        writeFile(path, "# host:count\n");
        model("m.nec", "valid");
        const QByteArray words = command + " m.nec";
        const Desk::Result result = m_desk->run(batch(words));
        QCOMPARE(result.exitCode, 2);
        QCOMPARE(result.errors, text("kestdesk: the machines file %1 names no host; \"kestdesk "
                                     "machines use-local\" lets it name this machine, \"kestdesk "
                                     "machines edit\" changes it\n")
                                    .arg(path));
        QVERIFY(!QFile::exists(m_desk->path("models/m.nec.seen")));
        QCOMPARE(m_desk->run({text("machines"), text("use-local")}).exitCode, 0);
        QCOMPARE(m_desk->run(batch(words)).exitCode, 0);
    }

    // Such a run asks for no hosts.
    void localRunNeedsNoHosts()
    {
        writeFile(m_desk->path("user/machines.kest"), "# host:count\n");
        setOptions({text("Kest.ParallelAuthenticMethod=2")});
        model("m.nec", "valid");
        const Desk::Result result = m_desk->run(batch("--parallel m.nec"));
        QCOMPARE(result.errors, QString());
        QCOMPARE(result.exitCode, 0);
    }

    void withoutAMachinesFileParallelRunsDoNotStart()
    {
        model("m.nec", "valid");
        const Desk::Result result = m_desk->run(batch("--parallel m.nec"));
        QCOMPARE(result.exitCode, 2);
        QVERIFY2(result.errors.startsWith(text("No machines file\n")), qPrintable(result.errors));
        QVERIFY2(
            result.errors.endsWith(text("kestdesk: runkest was not started; \"kestdesk machines "
                                        "use-local\" makes a machines file that names this "
                                        "machine\n")),
            qPrintable(result.errors));
        QVERIFY(!QFile::exists(m_desk->path("models/m.nec.seen")));
    }

    void withoutAMachinesFileTheOptimiserRunsUnfarmed()
    {
        model("m.nec", "valid");
        const Desk::Result result = m_desk->run(batch("--component optkest --farm-out m.nec"));
        QCOMPARE(result.exitCode, 0);
        QVERIFY(result.errors.startsWith(text("No machines file\n")));
        QVERIFY(!seenArguments("m.nec").contains(text("-np")));
    }

    void machinesFileOfTheInstallationIsCopiedToTheUser()
    {
        writeMachines("home/shared/mpi/machines.kest");
        QVERIFY(QDir(m_desk->path("user")).removeRecursively());
        model("m.nec", "valid");
        const Desk::Result result = m_desk->run(batch("--parallel m.nec"));
        QCOMPARE(result.errors, QString());
        QCOMPARE(result.exitCode, 0);
        QVERIFY(seenArguments("m.nec").filter(m_desk->path("user/gui_tmp_machfile_")).size() == 1);
        QCOMPARE(contentOf(m_desk->path("models/m.nec.machines")), QByteArray("localhost:2\n"));
    }

    void pipeInPlaceOfTheMachinesFileIsToldOf()
    {
        SPECIAL_FILE_OR_SKIP(S_IFIFO, m_desk->path("user/machines.kest"));
        model("m.nec", "valid");
        const Desk::Result result = m_desk->run(batch("--parallel m.nec"));
        QCOMPARE(result.exitCode, 2);
        QVERIFY2(result.errors.contains(text("it is not a regular file")),
                 qPrintable(result.errors));
        QVERIFY2(result.errors.contains(text("the machines file cannot be copied to ")),
                 qPrintable(result.errors));
        QVERIFY(!QFile::exists(m_desk->path("models/m.nec.seen")));
    }

    void machinesFileThatCannotBeCopiedIsToldOf()
    {
        writeMachines("home/shared/mpi/machines.kest");
        QVERIFY(QDir(m_desk->path("user")).removeRecursively());
        writeFile(m_desk->path("user"), "a file");
        model("m.nec", "valid");
        const Desk::Result result = m_desk->run(batch("--parallel m.nec"));
        QCOMPARE(result.exitCode, 2);
        QVERIFY2(result.errors.contains(text("the machines file cannot be copied to ") +
                                        m_desk->path("user/gui_tmp_machfile_")),
                 qPrintable(result.errors));
        QVERIFY(!QFile::exists(m_desk->path("models/m.nec.seen")));
    }
};

QTEST_GUILESS_MAIN(tst_kestdesk_machines_file)

#include "tst_kestdesk_machines_file.moc"
