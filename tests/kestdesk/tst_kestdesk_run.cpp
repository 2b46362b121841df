// SPDX-License-Identifier: MIT
#include "BatchTest.h"

#include <SpecialFile.h>
#include <SystemSkips.h>

#include <common_ActivePtr.h>
#include <common_CommonSettingsSet.h>
#include <common_IApplicationInfo.h>
#include <common_RunWrapper.h>
#include <common_ServiceOf.h>

#include <QRegularExpression>

#include <malloc.h>

namespace {

class Info : public common_IApplicationInfo
{
public:
    explicit Info(const Desk& desk) : m_desk(desk) {}

    QString applicationName() const override { return text("kestdesk"); }
    QString installationDirectory() const override { return m_desk.path("home"); }
    QString userSettingsDirectory() const override { return m_desk.path("user"); }
    QString defaultSettingsDirectory() const override { return m_desk.path("home"); }
    QString initialRecentFile() const override { return QString(); }

private:
    const Desk& m_desk;
};

/// The bytes that are allocated.
qint64 heapSize()
{
#ifdef Q_OS_LINUX
    return static_cast<qint64>(mallinfo2().uordblks);
#else
    return 0;
#endif
}

} // namespace

// What components are given, and what is refused before a run.
class tst_kestdesk_run : public BatchTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    void componentGetsTheUsersOptions_data()
    {
        QTest::addColumn<QString>("command");
        QTest::addColumn<QStringList>("options");
        QTest::addColumn<QString>("expected"); // COPY is the copy of the machines file
        // clang-format off
        QTest::newRow("solver by default")     << ""                                             << QStringList() << "m.nec --run-from-gui --use-gpu 0";
        QTest::newRow("solver")                << "--component runkest"                          << QStringList{text("Kest.ProcessPriority=3"), text("Kest.AdvancedOptions=  -a   -b ")} << "m.nec --run-from-gui --priority 3 --use-gpu 0 -a -b";
        QTest::newRow("pre- and adaptive")     << "--component runkest"                          << QStringList{text("Prekest.ContinueWithErrors=true"), text("Adaptkest.DeleteTempFiles=false")} << "m.nec --run-from-gui --use-gpu 0 --prekest-options --ignore-errors --adaptkest-options --keep-files";
        QTest::newRow("parallel solver")       << "--component runkest --parallel"               << QStringList() << "m.nec --run-from-gui -np all --machines-file COPY --parallel-authenticate sspi --use-gpu 0";
        QTest::newRow("counted")               << "--parallel"                                   << QStringList{text("Kest.SpecifyParallelProcesses=true"), text("Kest.NumberOfParallelProcesses=3")} << "m.nec --run-from-gui -np 3 --machines-file COPY --parallel-authenticate sspi --use-gpu 0";
        QTest::newRow("local only")            << "--parallel"                                   << QStringList{text("Kest.ParallelAuthenticMethod=2")} << "m.nec --run-from-gui -np all --parallel-authenticate localonly --use-gpu 0";
        QTest::newRow("remote solver")         << "--remote"                                     << QStringList{text("Kest.RemoteHost=host -p 22"), text("Kest.DisableGPUNote=true")} << "m.nec --remote-host host_-p_22 --run-from-gui --remote-use-mpi";
        QTest::newRow("both")                  << "--parallel --remote"                          << QStringList{text("Kest.RemoteHost=host")} << "m.nec --remote-host host --run-from-gui -np all --machines-file COPY --parallel-authenticate sspi --use-gpu 0 --remote-use-mpi";
        QTest::newRow("pre-processor")         << "--component prekest"                          << QStringList{text("Prekest.ExportVariablesToStdOut=true")} << "m.nec --run-from-gui --print-variables";
        QTest::newRow("optimiser")             << "--component optkest"                          << QStringList{text("Optkest.DeleteAllFiles=true")} << "m.nec --run-from-gui -r --runkest-options --use-gpu 0";
        QTest::newRow("farmed")                << "--component optkest --farm-out"               << QStringList{text("Optkest.NumberOfFarmProcesses=5")} << "m.nec --run-from-gui -np 5 --machines-file COPY --runkest-options --use-gpu 0";
        QTest::newRow("farmed and parallel")   << "--component optkest --farm-out --parallel"    << QStringList() << "m.nec --run-from-gui -np 2 --machines-file COPY --runkest-options -np all --parallel-authenticate sspi --use-gpu 0";
        QTest::newRow("everything")            << "--component optkest --farm-out --parallel --remote" << QStringList{text("Kest.RemoteHost=host")} << "m.nec --run-from-gui -np 2 --machines-file COPY --runkest-options --remote-host host -np all --parallel-authenticate sspi --use-gpu 0 --remote-use-mpi";
        QTest::newRow("refinement")            << "--component amrkest"                          << QStringList{text("Amrkest.ErrorThreshold=0")} << "m.nec --run-from-gui --error-threshold high --runkest-options --use-gpu 0";
        QTest::newRow("parallel refinement")   << "--component amrkest --parallel --remote"      << QStringList{text("Kest.RemoteHost=host")} << "m.nec --run-from-gui --runkest-options --parallel-authenticate sspi --use-gpu 0 --remote-use-mpi";
        // clang-format on
    }

    void componentGetsTheUsersOptions()
    {
        QFETCH(QString, command);
        QFETCH(QStringList, options);
        QFETCH(QString, expected);
        writeMachines();
        setOptions(options);
        model("m.nec", "valid");
        const Desk::Result result =
            m_desk->run(batch(command.toLatin1()) + QStringList(text("m.nec")));
        QCOMPARE(result.errors, QString());
        QCOMPARE(result.exitCode, 0);
        QStringList seen = seenArguments("m.nec");
        const QRegularExpression copy(QLatin1Char('^') +
                                      QRegularExpression::escape(QDir::toNativeSeparators(
                                          m_desk->path("user/gui_tmp_machfile_"))) +
                                      text("\\d{1,3}$"));
        for (QString& argument : seen) {
            argument.replace(copy, text("COPY")).replace(QLatin1Char(' '), QLatin1Char('_'));
        }
        QCOMPARE(seen.join(QLatin1Char(' ')), expected);
        QCOMPARE(contentOf(m_desk->path("models/m.nec.machines")),
                 expected.contains(text("COPY")) ? QByteArray("localhost:2\n") : QByteArray());
    }

    // Runs with other options than the user's would be worth nothing.
    void optionsThatCannotBeReadEndTheRun_data()
    {
        QTest::addColumn<QString>("file");
        QTest::addColumn<int>("kind");
        QTest::addColumn<QString>("reason");
        QTest::newRow("pipe") << "user/kest.ini" << int(S_IFIFO) << "it is a pipe";
        QTest::newRow("directory") << "user/kest.ini" << int(S_IFDIR) << "it is a directory";
        QTest::newRow("socket") << "user/kest.ini" << int(S_IFSOCK) << "it is a socket";
        QTest::newRow("the installation's") << "home/default.ini" << int(S_IFIFO) << "it is a pipe";
    }

    void optionsThatCannotBeReadEndTheRun()
    {
        QFETCH(QString, file);
        QFETCH(int, kind);
        QFETCH(QString, reason);
        QFile::remove(m_desk->path(file));
        SPECIAL_FILE_OR_SKIP(kind, m_desk->path(file));
        const Desk::Result result = m_desk->run(batch("") + QStringList(model("m.nec", "valid")));
        QCOMPARE(result.exitCode, 2);
        QVERIFY2(result.errors.contains(m_desk->path(file) + text(" cannot be used: ") + reason),
                 qPrintable(result.errors));
        QVERIFY(!QFile::exists(m_desk->path("models/m.nec.seen")));
    }

    void componentGetsTheEnvironmentOfTheOptions()
    {
        setOptions({text("EnvironmentVariables=A_VARIABLE = two   words\nANOTHER=2\nnothing"),
                    text("Kest.ParallelEnvOptions=1")});
        QCOMPARE(m_desk->run(batch("") + QStringList(model("m.nec", "valid"))).exitCode, 0);
        const QStringList seen = seenLines("m.nec");
        QVERIFY(seen.contains(text("A_VARIABLE=two words")));
        QVERIFY(seen.contains(text("ANOTHER=2")));
        QVERIFY(seen.contains(text("KEST_MPISTATISTICS=1")));
        QVERIFY(seen.contains(text("KEST_HOME=") + m_desk->path("home")));
    }

    void wrongComponentOrOptionIsRefused_data()
    {
        QTest::addColumn<QString>("command");
        QTest::addColumn<QString>("reason");
        // clang-format off
        QTest::newRow("adaptive by itself")   << "--component adaptkest"           << "adaptkest is started by runkest and not by itself";
        QTest::newRow("unknown")              << "--component sh"                  << "\"sh\" is no name of a component; the components are runkest, prekest, optkest, amrkest";
        QTest::newRow("other case")           << "--component RUNKEST"             << "\"RUNKEST\" is no name of a component";
        QTest::newRow("farmed solver")        << "--farm-out"                      << "--farm-out has no meaning for runkest, only for optkest";
        QTest::newRow("farmed refinement")    << "--component amrkest --farm-out"  << "--farm-out has no meaning for amrkest, only for optkest";
        QTest::newRow("parallel pre")         << "--component prekest --parallel"  << "--parallel has no meaning for prekest, only for runkest, optkest, amrkest";
        QTest::newRow("remote pre")           << "--component prekest --remote"    << "--remote has no meaning for prekest, only for runkest, optkest, amrkest";
        QTest::newRow("farmed pre")           << "--component prekest --farm-out"  << "--farm-out has no meaning for prekest, only for optkest";
        // clang-format on
    }

    void wrongComponentOrOptionIsRefused()
    {
        QFETCH(QString, command);
        QFETCH(QString, reason);
        const Desk::Result result =
            m_desk->run(batch(command.toLatin1()) + QStringList(model("m.nec", "valid")));
        QCOMPARE(result.exitCode, 2);
        QVERIFY2(result.errors.contains(reason), qPrintable(result.errors));
        QCOMPARE(result.output, QString());
        QVERIFY(!QFile::exists(m_desk->path("models/m.nec.seen")));
    }

    void eachModelGetsAFreshSetUp()
    {
        writeMachines();
        model("a.nec", "valid");
        model("b.nec", "valid");
        const Desk::Result result = m_desk->run(batch("--parallel a.nec b.nec a.nec"));
        QCOMPARE(result.exitCode, 0);
        QCOMPARE(seenArguments("a.nec").size(), seenArguments("b.nec").size());
        QCOMPARE(seenArguments("b.nec").constFirst(), text("b.nec"));
        QCOMPARE(seenLines("a.nec").filter(QRegularExpression(text("^-np$"))).size(), 2);
        QCOMPARE(contentOf(m_desk->path("models/b.nec.machines")), QByteArray("localhost:2\n"));
    }

    void foldersMayBeRelative()
    {
        writeMachines();
        setOptions({text("Kest.ProcessPriority=3")});
        m_desk->set("KEST_HOME", text("../home"));
        m_desk->set("KEST_USER_HOME", text("../user/."));
        QVERIFY(QDir().mkpath(m_desk->path("models/below")));
        model("below/m.nec", "valid");
        const Desk::Result result = m_desk->run(batch("--parallel below/m.nec"));
        QCOMPARE(result.errors, QString());
        QCOMPARE(result.exitCode, 0);
        const QStringList seen = seenLines("below/m.nec");
        QVERIFY(seen.contains(text("--priority")));
        QVERIFY(seen.contains(text("KEST_HOME=") + m_desk->path("home")));
        QVERIFY(seen.contains(text("KEST_USER_HOME=") + m_desk->path("user")));
        QCOMPARE(contentOf(m_desk->path("models/below/m.nec.machines")),
                 QByteArray("localhost:2\n"));
    }

    void foldersMayReferToOtherVariables()
    {
        writeMachines();
        m_desk->set("A_FOLDER", m_desk->path("user"));
        m_desk->set("KEST_USER_HOME", text("${A_FOLDER}"));
        setOptions({text("Kest.ProcessPriority=3")});
        model("m.nec", "valid");
        QCOMPARE(m_desk->run(batch("--parallel m.nec")).exitCode, 0);
        QVERIFY(seenArguments("m.nec").contains(text("--priority")));
        QCOMPARE(contentOf(m_desk->path("models/m.nec.machines")), QByteArray("localhost:2\n"));
    }

    void withoutAUsersFolderTheUsersSettingsAreTaken_data()
    {
        QTest::addColumn<bool>("empty");
        QTest::newRow("unset") << false;
        QTest::newRow("empty") << true;
    }

    void withoutAUsersFolderTheUsersSettingsAreTaken()
    {
        SKIP_ON_WINDOWS("the user's folder is one of the system");
        QFETCH(bool, empty);
        if (empty) {
            m_desk->set("KEST_USER_HOME", QString());
        } else {
            m_desk->unset("KEST_USER_HOME");
        }
        QVERIFY(QDir().mkpath(m_desk->path("settings/kest")));
        writeMachines("settings/kest/machines.kest");
        model("m.nec", "valid");
        QCOMPARE(m_desk->run(batch("--parallel m.nec")).exitCode, 0);
        QVERIFY(
            seenLines("m.nec").contains(text("KEST_USER_HOME=") + m_desk->path("settings/kest")));
        QCOMPARE(contentOf(m_desk->path("models/m.nec.machines")), QByteArray("localhost:2\n"));
    }

    void withoutAnInstallationTheOneBesideTheProgramIsTaken()
    {
        SKIP_ON_WINDOWS("the installation is the folder above the programs");
        m_desk->unset("KEST_HOME");
        QVERIFY(QDir().mkpath(m_desk->path("bin")));
        QVERIFY(QDir().mkpath(m_desk->path("lib/kest/suite")));
        QVERIFY(QFile::copy(text(KESTDESK), m_desk->path("bin/kestdesk")));
        QVERIFY(QFile::rename(m_desk->path("home/bin"), m_desk->path("lib/kest/suite/bin")));
        m_desk->setProgram(m_desk->path("bin/kestdesk"));
        model("m.nec", "valid");
        QCOMPARE(m_desk->run(batch("m.nec")).exitCode, 0);
        QVERIFY(seenLines("m.nec").contains(text("KEST_HOME=") + m_desk->path("lib/kest/suite")));
    }

    void installationWithoutComponentsIsToldOf()
    {
        m_desk->set("KEST_HOME", m_desk->path("nowhere"));
        model("m.nec", "valid");
        const Desk::Result result = m_desk->run(batch("m.nec"));
        QCOMPARE(result.exitCode, 2);
        QVERIFY2(result.errors.contains(text("there is no component runkest in ") +
                                        m_desk->path("nowhere")),
                 qPrintable(result.errors));
    }

    void whatIsNoModelIsRefused_data()
    {
        QTest::addColumn<QString>("model");
        QTest::addColumn<QString>("reason");
        QTest::newRow("missing") << "missing.nec"
                                 << "there is no model missing.nec";
        QTest::newRow("in a missing folder") << "missing/m.nec"
                                             << "there is no model missing/m.nec";
        QTest::newRow("folder") << "."
                                << ". is a folder and not a model";
        QTest::newRow("folder above") << "../models/"
                                      << "../models/ is a folder and not a model";
        QTest::newRow("nothing") << ""
                                 << "the name of a model is empty";
    }

    void whatIsNoModelIsRefused()
    {
        QFETCH(QString, model);
        QFETCH(QString, reason);
        writeMachines();
        const Desk::Result result = m_desk->run(batch("--parallel") + QStringList(model));
        QCOMPARE(result.exitCode, 2);
        QVERIFY2(result.errors.contains(reason), qPrintable(result.errors));
    }

    void memoryDoesNotGrowFromRunToRun()
    {
#if defined(__SANITIZE_ADDRESS__)
        QTest::qSkip("the sanitizer keeps freed memory, and tells of leaks itself", __FILE__,
                     __LINE__);
        return;
#endif
#ifdef Q_OS_WIN
        QSKIP("the C library of Windows does not say how much memory is in use");
#endif
        writeMachines();
        const Info info(*m_desk);
        common_ServiceOf<common_IApplicationInfo>::setService(const_cast<Info*>(&info));
        qputenv("KEST_HOME", m_desk->path("home").toUtf8());
        qputenv("KEST_USER_HOME", m_desk->path("user").toUtf8());
        const QFileInfo file(model("m.nec", "valid"));
        common_CommonSettingsSet settings(m_desk->path("user"), text("kestdesk"));
        const auto runs = [&](int count) {
            for (int i = 0; i < count; ++i) {
                common_RunWrapper wrapper(&settings);
                const common_ActivePtr<common_RunWrapper::Runner> runner(
                    new common_RunWrapper::Runner);
                QVERIFY(wrapper.setupKestProcess(*runner, file, common_RunWrapper::Parallel));
                QVERIFY(runner->runAndWaitForFinish());
                QVERIFY(runner->normalExit());
                QCOMPARE(temporaryFiles(), QStringList());
                QCoreApplication::processEvents();
            }
        };
        runs(20);
        const qint64 before = heapSize();
        runs(200);
        const qint64 after = heapSize();
        common_ServiceOf<common_IApplicationInfo>::setService(nullptr);
        // Caches fill up for some hundred runs, by less than 100 bytes each; a runner has
        // thousands.
        QVERIFY2(after < before + 64000,
                 qPrintable(QStringLiteral("%1 bytes more").arg(after - before)));
        QCOMPARE(common_ProcessRunnerBase::getProcessCount(), 0);
    }

#ifdef KEST_SUITE
    void dipoleIsComputedWithTheUsersOptions()
    {
        m_desk->set("KEST_HOME", text(KEST_SUITE));
        setOptions({text("Prekest.ExportVariablesToStdOut=true")});
        QVERIFY(QFile::copy(text(KEST_SUITE "/models/dipole.nec"), m_desk->path("models/a b.nec")));
        const Desk::Result result = m_desk->run(
            {text("--non-interactive"), text("--component"), text("prekest"), text("a b.nec")});
        QCOMPARE(result.exitCode, 0);
        const Desk::Result solved = m_desk->run({text("--non-interactive"), text("a b.nec")});
        QVERIFY2(solved.exitCode == 0, qPrintable(solved.output + solved.errors));
        QVERIFY(QFile::exists(m_desk->path("models/a b.csv")));
    }
#endif
};

QTEST_GUILESS_MAIN(tst_kestdesk_run)

#include "tst_kestdesk_run.moc"
