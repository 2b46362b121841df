#include "Desk.h"
#include "RunEndings.h"

#include <TestRandom.h>

#include <SpecialFile.h>

#include <common_ActivePtr.h>
#include <common_CommonSettingsSet.h>
#include <common_IApplicationInfo.h>
#include <common_RunWrapper.h>
#include <common_ServiceOf.h>

#include <QElapsedTimer>
#include <QRegularExpression>
#include <QSet>
#include <QSettings>

#include <csignal>
#include <vector>

#include <malloc.h>
#include <sys/stat.h>
#include <sys/types.h>
#include <unistd.h>

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

} // namespace

class tst_kestdesk_run : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<Desk> m_desk;

    QString model(const char* name, const QByteArray& behaviour) const
    {
        writeFile(m_desk->path(text("models/") + text(name)), behaviour);
        return m_desk->path(text("models/") + text(name));
    }

    void writeMachines(const char* file = "user/machines.kest") const
    {
        writeFile(m_desk->path(file), "localhost:2\n");
    }

    /// "NAME=value" with the value as the settings file has it.
    void setOptions(const QStringList& assignments) const
    {
        QSettings settings(m_desk->path("user/kest.ini"), QSettings::IniFormat);
        for (const QString& assignment : assignments) {
            settings.setValue(text("options/") + assignment.section(QLatin1Char('='), 0, 0),
                              assignment.section(QLatin1Char('='), 1));
        }
    }

    static QStringList words(const QByteArray& line)
    {
        return QString::fromUtf8(line).split(QLatin1Char(' '), Qt::SkipEmptyParts);
    }

    static QStringList batch(const QByteArray& line)
    {
        return QStringList(text("--non-interactive")) + words(line);
    }

    QStringList seenLines(const char* model) const
    {
        return QString::fromUtf8(
                   contentOf(m_desk->path(text("models/") + text(model) + text(".seen"))))
            .split(QLatin1Char('\n'));
    }

    /// The arguments of the last run on the model.
    QStringList seenArguments(const char* model) const
    {
        const QStringList lines = seenLines(model);
        return lines.mid(0, lines.indexOf(text("--")));
    }

    QStringList temporaryFiles() const
    {
        QStringList result;
        for (const char* const name : {"user", "home/shared/mpi", "models", "settings/kest"}) {
            result += QDir(m_desk->path(name))
                          .entryList({text("gui_tmp_machfile*"), text(".gui_tmp_machfile*")},
                                     QDir::AllEntries | QDir::Hidden);
        }
        return result;
    }

    void waitUntilUp(QProcess& process) const
    {
        QByteArray output;
        while (!output.contains("up\n")) {
            QVERIFY2(process.waitForReadyRead(30000), output.constData());
            output += process.readAllStandardOutput();
        }
    }

private Q_SLOTS:
    void init()
    {
        m_desk = std::make_unique<Desk>();
        for (const char* const name : {"runkest", "prekest", "optkest", "amrkest"}) {
            QVERIFY(
                QFile::link(text(FAKE_COMPONENT), m_desk->path(text("home/bin/") + text(name))));
        }
    }

    void cleanup()
    {
        QTRY_COMPARE_WITH_TIMEOUT(m_desk->processes(), QStringList(), 5000);
        QCOMPARE(temporaryFiles(), QStringList());
    }

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
                                      QRegularExpression::escape(m_desk->path("user")) +
                                      text("/gui_tmp_machfile_\\d{1,3}$"));
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
        QVERIFY(SpecialFile::make(kind, m_desk->path(file)));
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
        ::kill(pid_t(process.processId()), signal);
        if (times > 1) {
            QVERIFY(!process.waitForFinished(300));
        }
        QElapsedTimer timer;
        timer.start();
        for (int i = 1; i < times; ++i) {
            ::kill(pid_t(process.processId()), signal);
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
        ::kill(pid_t(process.processId()), SIGTERM);
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
        m_desk->start(process, {text("-c"), text("trap '' HUP; exec \"$0\" \"$@\""), text(KESTDESK),
                                text("--non-interactive"), text("m.nec")});
        waitUntilUp(process);
        ::kill(pid_t(process.processId()), SIGHUP);
        QVERIFY(!process.waitForFinished(300));
        ::kill(pid_t(process.processId()), SIGTERM);
        QCOMPARE(Desk::resultOf(process).exitCode, 130);
    }

    void outcomeFollowsFromTheEnd_data() { addRunEndings(); }

    void outcomeFollowsFromTheEnd()
    {
        QFETCH(int, row);
        const RunEnding& ending = runEndings().at(row);
        model("m.nec", ending.model);
        QProcess process;
        m_desk->start(process, batch("m.nec"));
        if (ending.isStopped) {
            waitUntilUp(process);
            ::kill(pid_t(process.processId()), SIGINT);
        }
        const Desk::Result result = Desk::resultOf(process);
        const int exitCodes[] = {0, 1, 2, 130}; // by outcome
        QCOMPARE(result.exitCode, exitCodes[static_cast<int>(ending.outcome)]);
        const QString outcome = text("m.nec: ") + RunOutcome::word(ending.outcome);
        QVERIFY2(result.output.endsWith(outcome + text("\n")), qPrintable(result.output));
        const QString reason = result.output.section(QLatin1Char('\n'), -3, -3);
        if (*ending.meaning == '\0') {
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
        ::kill(pid_t(process.processId()), SIGINT);
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
        ::kill(pid_t(process.processId()), SIGINT);
        QByteArray output;
        while (!output.contains("m.nec: stopped")) {
            QVERIFY(process.waitForReadyRead(30000));
            output += process.readAllStandardOutput();
        }
        QElapsedTimer timer;
        timer.start();
        ::kill(pid_t(process.processId()), SIGINT);
        QCOMPARE(Desk::resultOf(process).exitCode, 130);
        QVERIFY2(timer.elapsed() < 1500, qPrintable(QString::number(timer.elapsed())));
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
        ::kill(pid_t(process.processId()), SIGINT);
        QVERIFY(!process.waitForFinished(300));
        ::kill(pid_t(process.processId()), SIGINT);
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
        for (const QString& left : processes) {
            ::kill(left.section(QLatin1Char(' '), 0, 0).toInt(), SIGKILL);
        }
    }

    // By "kill -9", which leaves nobody time for anything.
    void whatAKilledProgramLeavesIsClearedAtTheNextStart()
    {
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
        ::kill(components.constFirst().section(QLatin1Char(' '), 0, 0).toInt(), SIGKILL);
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
            ::kill(pid_t(processes[std::size_t(i)]->processId()), SIGTERM);
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
        const QByteArray pipe = QFile::encodeName(m_desk->path("user/machines.kest"));
        QVERIFY(mkfifo(pipe.constData(), 0600) == 0);
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
                                 << "there is no model ";
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
                ::kill(pid_t(process.processId()), i % 2 ? SIGINT : SIGTERM);
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

    void memoryDoesNotGrowFromRunToRun()
    {
#if defined(__SANITIZE_ADDRESS__)
        QTest::qSkip("the sanitizer keeps freed memory, and tells of leaks itself", __FILE__,
                     __LINE__);
        return;
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
        const auto before = mallinfo2().uordblks;
        runs(200);
        const auto after = mallinfo2().uordblks;
        common_ServiceOf<common_IApplicationInfo>::setService(nullptr);
        // Caches fill up for some hundred runs, by less than 100 bytes each; a runner has
        // thousands.
        QVERIFY2(after < before + 64000,
                 qPrintable(QStringLiteral("%1 bytes more").arg(qint64(after) - qint64(before))));
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
