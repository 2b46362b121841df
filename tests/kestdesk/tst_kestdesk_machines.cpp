#include "Desk.h"

#include <TerminalRun.h>

#include <QElapsedTimer>
#include <QHostInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <QThread>

#include <csignal>

#include <sys/stat.h>
#include <unistd.h>

namespace {

const char* const shellScript = "#!/bin/sh\n";

} // namespace

class tst_kestdesk_machines : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<Desk> m_desk;

    Desk::Result machines(const QByteArray& words, const QByteArray& input = {}) const
    {
        return m_desk->run(QStringList(text("machines")) +
                               QString::fromUtf8(words).split(QLatin1Char(' '), Qt::SkipEmptyParts),
                           input);
    }

    void writeMachines(const QByteArray& content) const
    {
        writeFile(m_desk->path("user/machines.kest"), content);
    }

    QByteArray machinesFile() const { return contentOf(m_desk->path("user/machines.kest")); }

    static QStringList lines(const QString& output)
    {
        return output.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    }

    static QByteArray localLine()
    {
        return "localhost:" + QByteArray::number(qMax(QThread::idealThreadCount(), 1));
    }

    /// What the fake ssh does for the host.
    void host(const QByteArray& name, const QByteArray& behaviour) const
    {
        writeFile(m_desk->path(text("ssh/") + QString::fromUtf8(name)), behaviour);
    }

    /// An editor that runs this script with the file to edit as "$1", or behind what stands in
    /// VISUAL otherwise.
    void setEditor(const QByteArray& script) const
    {
        const QString program = m_desk->path("editor");
        writeFile(program, shellScript + script);
        QVERIFY(
            QFile::setPermissions(program, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
        m_desk->set("VISUAL", QLatin1Char('"') + program + QLatin1Char('"'));
    }

    /// The copies that edit left.
    QStringList copies() const
    {
        return QDir(m_desk->path("user")).entryList({text("machines-edited-*")}, QDir::Files);
    }

    /// Runs kestdesk on a terminal, types the answers, and returns all that it writes there.
    Desk::Result onTerminal(const QStringList& arguments, const QByteArray& answers) const
    {
        const TerminalRun run = TerminalRun::of(text(KESTDESK), arguments,
                                                m_desk->environment().toStringList(), answers);
        Desk::Result result;
        result.exitCode = run.exitCode;
        result.output = QString::fromUtf8(run.output);
        return result;
    }

private Q_SLOTS:
    void init()
    {
        m_desk = std::make_unique<Desk>();
        QVERIFY(QDir().mkpath(m_desk->path("ssh")));
        QVERIFY(QFile::link(text(FAKE_SSH), m_desk->path("fake ssh")));
        m_desk->set("KEST_SSH", m_desk->path("fake ssh"));
        m_desk->set("KEST_FAKE_SSH", m_desk->path("ssh"));
        m_desk->set("TERM", text("xterm"));
        m_desk->unset("NO_COLOR");
    }

    void cleanup() { QTRY_COMPARE_WITH_TIMEOUT(m_desk->processes(), QStringList(), 5000); }

    void showTellsTheFileItsHostsAndTheTotal()
    {
        writeMachines("# ours\nnode1:4\nlonger.node2\n");
        const Desk::Result result = machines("show");
        QCOMPARE(result.errors, QString());
        QCOMPARE(lines(result.output),
                 QStringList(
                     {m_desk->path("user/machines.kest") + text(" (the user's, in KEST_USER_HOME)"),
                      text("  node1            4"), text("  longer.node2     1"),
                      text("in all: 5 processes, hosts: 2")}));
        QCOMPARE(result.exitCode, 0);
    }

    void showTakesTheInstallationsFileWhereTheUserHasNone()
    {
        writeFile(m_desk->path("home/shared/mpi/machines.kest"), "node1:4\n");
        const Desk::Result result = machines("show");
        QCOMPARE(lines(result.output).value(0), m_desk->path("home/shared/mpi/machines.kest") +
                                                    text(" (the installation's, in KEST_HOME)"));
        QCOMPARE(result.exitCode, 0);
        const QByteArray report = machines("show --json").output.toUtf8();
        QCOMPARE(QJsonDocument::fromJson(report).object().value(text("foundIn")).toString(),
                 text("KEST_HOME"));
    }

    void showSaysWhereItLookedWhenThereIsNone()
    {
        const Desk::Result result = machines("show");
        QVERIFY(result.output.contains(m_desk->path("user/machines.kest")));
        QVERIFY(result.output.contains(m_desk->path("home/shared/mpi/machines.kest")));
        QVERIFY(result.output.contains(text("\"kestdesk machines edit\" makes the user's")));
        QCOMPARE(result.exitCode, 1);
    }

    void showNamesWhatIsWrong_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QString>("finding");
        QTest::addColumn<QString>("total");
        QTest::addColumn<int>("exitCode");
        // clang-format off
        QTest::newRow("word")      << QByteArray("a:2\nb:x\n")     << "line 2, error: b:x: \"x\" is no number of processes" << "in all: 2 processes, hosts: 1" << 1;
        QTest::newRow("negative")  << QByteArray("a:2\nb:-3\n")    << "line 2, error: b:-3: the number of processes is negative" << "in all: no processes" << 1;
        QTest::newRow("duplicate") << QByteArray("a:2\na:3\n")     << "line 2, warning: a:3: the host stands in line 1 already" << "in all: 5 processes, hosts: 1" << 0;
        QTest::newRow("Windows")   << QByteArray("a:2\r\nb:3\r\n") << "line 1, note: lines end as on Windows, with a carriage return" << "in all: 5 processes, hosts: 2" << 0;
        QTest::newRow("comments")  << QByteArray("#a:2\n")         << "error: it names no host" << "in all: no processes" << 1;
        QTest::newRow("empty")     << QByteArray()                 << "error: it names no host" << "in all: no processes" << 1;
        QTest::newRow("word alone") << QByteArray("b:x\n")         << "line 1, error: b:x: \"x\" is no number of processes" << "in all: 0 processes, hosts: 0" << 1;
        QTest::newRow("IPv6")      << QByteArray("[::1]:2\na\n")   << "line 1, warning: [::1]:2: the processes of an address in brackets are left out of the total" << "in all: 1 processes, hosts: 2" << 0;
        // clang-format on
    }

    void showNamesWhatIsWrong()
    {
        QFETCH(QByteArray, content);
        QFETCH(QString, finding);
        QFETCH(QString, total);
        QFETCH(int, exitCode);
        writeMachines(content);
        const Desk::Result result = machines("show");
        QCOMPARE(lines(result.output).constLast(), finding);
        QVERIFY2(lines(result.output).contains(total), qPrintable(result.output));
        QCOMPARE(result.exitCode, exitCode);
    }

    void pipeInPlaceOfTheFileIsToldOf_data()
    {
        QTest::addColumn<QByteArray>("words");
        QTest::addColumn<int>("exitCode");
        QTest::newRow("show") << QByteArray("show") << 1;
        QTest::newRow("check") << QByteArray("check") << 1;
        QTest::newRow("edit") << QByteArray("edit") << 2;
        QTest::newRow("use-local") << QByteArray("use-local") << 2;
        QTest::newRow("use-local --replace") << QByteArray("use-local --replace") << 2;
    }

    void pipeInPlaceOfTheFileIsToldOf()
    {
        QFETCH(QByteArray, words);
        QFETCH(int, exitCode);
        const QByteArray pipe = QFile::encodeName(m_desk->path("user/machines.kest"));
        QVERIFY(mkfifo(pipe.constData(), 0600) == 0);
        setEditor("true");
        const Desk::Result result = machines(words);
        QVERIFY2((result.output + result.errors).contains(text("it is not a regular file")),
                 qPrintable(result.output + result.errors));
        QCOMPARE(result.exitCode, exitCode);
        QCOMPARE(copies(), QStringList());
    }

    void folderInPlaceOfTheFileIsToldOf()
    {
        QVERIFY(QDir().mkpath(m_desk->path("user/machines.kest")));
        const Desk::Result result = machines("show");
        QCOMPARE(lines(result.output).constLast(), text("error: it is a folder"));
        QCOMPARE(result.exitCode, 1);
        QVERIFY(result.errors.startsWith(text("Open failed\n")));
    }

    void unreadableFileIsToldOf()
    {
        writeMachines("a:1\n");
        QVERIFY(QFile::setPermissions(m_desk->path("user/machines.kest"), {}));
        if (geteuid() == 0) {
            QTest::qSkip("permissions do not bind the administrator", __FILE__, __LINE__);
            return;
        }
        const Desk::Result result = machines("show");
        QCOMPARE(lines(result.output).constLast(),
                 text("error: it cannot be read: Permission denied"));
        QCOMPARE(result.exitCode, 1);
    }

    void millionLinesDoNotFloodTheTerminal_data()
    {
        QTest::addColumn<QByteArray>("line");
        QTest::addColumn<QString>("more");
        QTest::addColumn<int>("exitCode");
        QTest::newRow("right") << QByteArray("node1:2\n") << "  ... and 999950 lines more" << 0;
        QTest::newRow("wrong") << QByteArray("node1;:2\n")
                               << "... and 999980 more of kind \"error\"" << 1;
    }

    void millionLinesDoNotFloodTheTerminal()
    {
        QFETCH(QByteArray, line);
        QFETCH(QString, more);
        QFETCH(int, exitCode);
        writeMachines(line.repeated(1000000));
        const Desk::Result result = machines("show");
        QVERIFY2(lines(result.output).contains(more), qPrintable(result.output.left(5000)));
        QVERIFY(lines(result.output).size() < 100);
        const bool isWrong = exitCode != 0;
        QCOMPARE(lines(result.output).filter(text(", error: ")).size(), isWrong ? 20 : 0);
        QCOMPARE(lines(result.output).filter(QRegularExpression(text("^  node1 +2$"))).size(),
                 isWrong ? 0 : 50);
        QCOMPARE(result.exitCode, exitCode);
    }

    void nothingIsLeftOutWhereThereIsRoomForAll()
    {
        writeMachines(QByteArray("a;\n").repeated(20));
        const QStringList shown = lines(machines("show").output);
        QCOMPARE(shown.filter(text(", error: ")).size(), 20);
        QCOMPARE(shown.filter(text(" more")), QStringList());
    }

    void errorsComeBeforeWarningsAndNotes()
    {
        writeMachines("a:1\r\na:1\r\nb:x\r\n");
        const QStringList shown = lines(machines("show").output);
        QVERIFY(shown.value(shown.size() - 3).startsWith(text("line 3, error: ")));
        QVERIFY(shown.value(shown.size() - 2).startsWith(text("line 2, warning: ")));
        QVERIFY(shown.constLast().startsWith(text("line 1, note: ")));
    }

    void longNameDoesNotWidenTheTable()
    {
        writeMachines(QByteArray(200, 'n') + "\nshort:3\n");
        QVERIFY(lines(machines("show").output)
                    .contains(text("  ") + text("short").leftJustified(40) + text("     3")));
    }

    void lineOfAMegabyteIsCut()
    {
        writeMachines(QByteArray(1 << 20, 'a') + ":x\n");
        const Desk::Result result = machines("show");
        QVERIFY(result.output.size() < 1000);
        QVERIFY(result.output.contains(text("aaa...: the name of the host is longer than 255")));
    }

    void controlCharactersDoNotReachTheTerminal()
    {
        writeMachines("a\x1b[2Jb\n");
        QVERIFY(!machines("show").output.contains(QLatin1Char('\x1b')));
    }

    void coloursAreForTerminalsAlone_data()
    {
        QTest::addColumn<bool>("wanted");
        QTest::newRow("terminal") << true;
        QTest::newRow("NO_COLOR") << false;
    }

    void coloursAreForTerminalsAlone()
    {
        QFETCH(bool, wanted);
        writeMachines("a:x\n");
        if (!wanted) {
            m_desk->set("NO_COLOR", text("1"));
        }
        const Desk::Result result = onTerminal({text("machines"), text("show")}, {});
        QCOMPARE(result.output.contains(text("\x1b[31mline 1, error: ")), wanted);
        QVERIFY(result.output.contains(text("line 1, error: ")));
        QVERIFY(!machines("show").output.contains(QLatin1Char('\x1b')));
    }

    void showIsReadableForPrograms()
    {
        writeMachines("node1:4\nnode2;:1\n");
        const Desk::Result result = machines("show --json");
        QCOMPARE(result.exitCode, 1);
        const QJsonObject report = QJsonDocument::fromJson(result.output.toUtf8()).object();
        QCOMPARE(report.value(text("file")).toString(), m_desk->path("user/machines.kest"));
        QCOMPARE(report.value(text("foundIn")).toString(), text("KEST_USER_HOME"));
        QCOMPARE(report.value(text("processes")).toInt(), 5);
        QCOMPARE(report.value(text("hosts")).toInt(), 1);
        const QJsonArray entries = report.value(text("entries")).toArray();
        QCOMPARE(entries.size(), 1);
        QCOMPARE(entries[0].toObject().value(text("host")).toString(), text("node1"));
        QCOMPARE(entries[0].toObject().value(text("processes")).toInt(), 4);
        const QJsonArray findings = report.value(text("findings")).toArray();
        QCOMPARE(findings.size(), 1);
        QCOMPARE(findings[0].toObject().value(text("line")).toInt(), 2);
        QCOMPARE(findings[0].toObject().value(text("severity")).toString(), text("error"));
        QCOMPARE(report.value(text("findingCounts")).toObject().value(text("error")).toInt(), 1);
    }

    void noFileIsReadableForProgramsToo()
    {
        const Desk::Result result = machines("show --json");
        QCOMPARE(result.exitCode, 1);
        const QJsonObject report = QJsonDocument::fromJson(result.output.toUtf8()).object();
        QVERIFY(report.value(text("file")).isNull());
        QCOMPARE(report.value(text("candidates")).toArray().size(), 2);
        QCOMPARE(report.value(text("processes")).toInt(), -1);
    }

    void wordsThatMakeNoSenseShowTheUsage_data()
    {
        QTest::addColumn<QString>("words");
        QTest::addColumn<QString>("problem");
        const auto row = [](const char* words, const char* problem) {
            QTest::newRow(words) << text(words) << text(problem);
        };
        row("", "no command given");
        row("list", "unknown command \"list\"");
        row("show --xml", "unknown option \"--xml\"");
        row("show --json --json", "--json is given twice");
        row("check --json", "unknown option \"--json\"");
        row("check --timeout 1 2", "unexpected argument \"2\"");
        row("edit file", "unexpected argument \"file\"");
        row("use-local file", "unexpected argument \"file\"");
        row("use-local --replace --replace", "--replace is given twice");
        const char* const limits = "--timeout takes whole seconds from 1 to 3600, and not \"%1\"";
        for (const char* const seconds : {"", " 0", " -1", "=", " x", " 3601"}) {
            QTest::addRow("check --timeout%s", seconds) << text("check --timeout") + text(seconds)
                                                        << text(limits).arg(text(seconds).mid(1));
        }
    }

    void wordsThatMakeNoSenseShowTheUsage()
    {
        QFETCH(QString, words);
        QFETCH(QString, problem);
        const Desk::Result result = machines(words.toLatin1());
        QCOMPARE(result.exitCode, 2);
        QCOMPARE(result.output, QString());
        QVERIFY(result.errors.startsWith(text("Usage: kestdesk machines COMMAND\n")));
        const QString lastLine = QStringLiteral("kestdesk: %1\n").arg(problem);
        QVERIFY2(result.errors.endsWith(lastLine), qPrintable(result.errors));
        QVERIFY(
            m_desk->run({text("--help")}).output.contains(result.errors.chopped(lastLine.size())));
    }

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
        ::kill(pid_t(process.processId()), SIGTERM);
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
        ::kill(pid_t(process.processId()), signal);
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
        ::kill(pid_t(process.processId()), SIGTERM);
        QCOMPARE(Desk::resultOf(process).exitCode, 130);
        QVERIFY(timer.elapsed() < 5000);
    }

    void editSavesWhatIsRight_data()
    {
        QTest::addColumn<QByteArray>("before");
        QTest::addColumn<QByteArray>("script");
        QTest::addColumn<QByteArray>("after");
        // clang-format off
        QTest::newRow("more")        << QByteArray("a:1\n")  << QByteArray("echo b:2 >>\"$1\"")      << QByteArray("a:1\nb:2\n");
        QTest::newRow("with a note") << QByteArray("a:1\n")  << QByteArray("printf 'a:1\\r\\n' >\"$1\"") << QByteArray("a:1\r\n");
        QTest::newRow("renamed")     << QByteArray("a:1\n")  << QByteArray("echo b >\"$1.x\"; mv \"$1.x\" \"$1\"") << QByteArray("b\n");
        QTest::newRow("unchanged")   << QByteArray("a:1\n")  << QByteArray("true")                   << QByteArray("a:1\n");
        QTest::newRow("wrong before and unchanged") << QByteArray("a:x\n")  << QByteArray("true")    << QByteArray("a:x\n");
        // clang-format on
    }

    void editSavesWhatIsRight()
    {
        QFETCH(QByteArray, before);
        QFETCH(QByteArray, script);
        QFETCH(QByteArray, after);
        writeMachines(before);
        setEditor(script);
        const Desk::Result result = machines("edit");
        QCOMPARE(result.exitCode, 0);
        QCOMPARE(machinesFile(), after);
        QCOMPARE(copies(), QStringList());
        QCOMPARE(result.output,
                 before == after
                     ? text("Nothing was changed.\n")
                     : QStringLiteral("Saved %1.\n").arg(m_desk->path("user/machines.kest")));
    }

    void editBeginsWithTheInstallationsFileOrATemplate_data()
    {
        QTest::addColumn<bool>("installed");
        QTest::newRow("installation's") << true;
        QTest::newRow("template") << false;
    }

    void editBeginsWithTheInstallationsFileOrATemplate()
    {
        QFETCH(bool, installed);
        if (installed) {
            writeFile(m_desk->path("home/shared/mpi/machines.kest"), "shared:3\n");
        }
        QVERIFY(QDir(m_desk->path("user")).removeRecursively());
        setEditor("true");
        QCOMPARE(machines("edit").output, text("Nothing was changed.\n"));
        QVERIFY(!QFile::exists(m_desk->path("user/machines.kest")));
        setEditor("echo mine:2 >>\"$1\"");
        QCOMPARE(machines("edit").exitCode, 0);
        const QByteArray content = machinesFile();
        QVERIFY(content.startsWith(installed ? "shared:3\n" : "# The machines for parallel runs"));
        QVERIFY(content.endsWith("mine:2\n"));
        QCOMPARE(machines("show").exitCode, 0);
    }

    void wrongFileIsNotSavedWhenNobodyCanBeAsked()
    {
        writeMachines("a:1\n");
        setEditor("echo b:x >>\"$1\"");
        const Desk::Result result = machines("edit", "s\n");
        QCOMPARE(result.exitCode, 1);
        QCOMPARE(machinesFile(), QByteArray("a:1\n"));
        QCOMPARE(copies().size(), 1);
        const QString copy = m_desk->path("user/") + copies().constFirst();
        QCOMPARE(contentOf(copy), QByteArray("a:1\nb:x\n"));
        QVERIFY2(result.errors.contains(text("line 2, error: b:x: ")), qPrintable(result.errors));
        QVERIFY2(result.errors.contains(
                     text("a file with errors is not saved; what you edited is in ") + copy),
                 qPrintable(result.errors));
    }

    void ofAWrongFileTheUserDecides_data()
    {
        QTest::addColumn<QByteArray>("answers");
        QTest::addColumn<QByteArray>("after");
        QTest::addColumn<int>("exitCode");
        QTest::addColumn<int>("copies");
        // clang-format off
        QTest::newRow("save")             << QByteArray("s\n")      << QByteArray("a:1\nb:x\n")             << 0 << 0;
        QTest::newRow("discard")          << QByteArray("d\n")      << QByteArray("a:1\n")                  << 1 << 0;
        QTest::newRow("again, save")      << QByteArray("e\nS\n")   << QByteArray("a:1\nb:x\nb:x\n")        << 0 << 0;
        QTest::newRow("nothing, save")    << QByteArray("\ns\n")    << QByteArray("a:1\nb:x\nb:x\n")        << 0 << 0;
        QTest::newRow("nonsense, save")   << QByteArray("what\ns\n") << QByteArray("a:1\nb:x\n")            << 0 << 0;
        QTest::newRow("end of the input") << QByteArray("\x04")     << QByteArray("a:1\n")                  << 1 << 1;
        // clang-format on
    }

    void ofAWrongFileTheUserDecides()
    {
        QFETCH(QByteArray, answers);
        QFETCH(QByteArray, after);
        QFETCH(int, exitCode);
        QFETCH(int, copies);
        writeMachines("a:1\n");
        setEditor("echo b:x >>\"$1\"");
        const Desk::Result result = onTerminal({text("machines"), text("edit")}, answers);
        QVERIFY2(result.output.contains(text("Edit again, save anyway, or discard? [e/s/d] ")),
                 qPrintable(result.output));
        QCOMPARE(result.exitCode, exitCode);
        QCOMPARE(machinesFile(), after);
        QCOMPARE(this->copies().size(), copies);
    }

    void changeOfSomebodyElseIsNotOverwritten_data()
    {
        QTest::addColumn<QByteArray>("before");
        QTest::newRow("changed") << QByteArray("a:1\n");
        QTest::newRow("made") << QByteArray();
    }

    void changeOfSomebodyElseIsNotOverwritten()
    {
        QFETCH(QByteArray, before);
        if (!before.isEmpty()) {
            writeMachines(before);
        }
        setEditor("echo theirs:1 >\"$KEST_USER_HOME/machines.kest\"; echo mine:1 >\"$1\"");
        const Desk::Result result = machines("edit");
        QCOMPARE(result.exitCode, 1);
        QCOMPARE(machinesFile(), QByteArray("theirs:1\n"));
        QVERIFY2(result.errors.contains(text("was changed meanwhile")), qPrintable(result.errors));
        QCOMPARE(copies().size(), 1);
        QCOMPARE(contentOf(m_desk->path("user/") + copies().constFirst()), QByteArray("mine:1\n"));
    }

    void nothingIsLostWhenTheFileCannotBeWritten()
    {
        writeMachines("a:1\n");
        setEditor("echo b:2 >\"$1\"; rm \"$KEST_USER_HOME/machines.kest\"; "
                  "mkdir \"$KEST_USER_HOME/machines.kest\"");
        const Desk::Result result = machines("edit");
        QCOMPARE(result.exitCode, 1);
        QCOMPARE(copies().size(), 1);
        QCOMPARE(contentOf(m_desk->path("user/") + copies().constFirst()), QByteArray("b:2\n"));
    }

    void editorThatFailsSavesNothing_data()
    {
        QTest::addColumn<QByteArray>("script");
        QTest::addColumn<int>("copies");
        QTest::newRow("changed") << QByteArray("echo b:2 >>\"$1\"; exit 1") << 1;
        QTest::newRow("unchanged") << QByteArray("exit 1") << 0;
        QTest::newRow("crashed") << QByteArray("echo b:2 >>\"$1\"; kill -9 $$") << 1;
        QTest::newRow("removed") << QByteArray("rm \"$1\"") << 0;
    }

    void editorThatFailsSavesNothing()
    {
        QFETCH(QByteArray, script);
        QFETCH(int, copies);
        writeMachines("a:1\n");
        setEditor(script);
        const Desk::Result result = machines("edit");
        QCOMPARE(result.exitCode, 1);
        QCOMPARE(machinesFile(), QByteArray("a:1\n"));
        QCOMPARE(this->copies().size(), copies);
        QVERIFY2(result.errors.startsWith(text("kestdesk: ")), qPrintable(result.errors));
    }

    void editorMayHaveArguments_data()
    {
        QTest::addColumn<QString>("variable");
        QTest::newRow("VISUAL") << "VISUAL";
        QTest::newRow("EDITOR") << "EDITOR";
    }

    void editorMayHaveArguments()
    {
        QFETCH(QString, variable);
        writeFile(m_desk->path("wrapper"), shellScript + QByteArray("[ \"$1\" = -w ] || exit 5\n"
                                                                    "echo c:3 >\"$2\"\n"));
        QVERIFY(QFile::setPermissions(m_desk->path("wrapper"), QFile::ReadOwner | QFile::ExeOwner));
        m_desk->set(variable.toLatin1().constData(),
                    QStringLiteral("\"%1\" -w").arg(m_desk->path("wrapper")));
        QCOMPARE(machines("edit").exitCode, 0);
        QCOMPARE(machinesFile(), QByteArray("c:3\n"));
    }

    void visualComesBeforeTheOtherEditor()
    {
        setEditor("echo g:7 >\"$1\"");
        m_desk->set("EDITOR", text("/no/such/editor"));
        QCOMPARE(machines("edit").exitCode, 0);
        QCOMPARE(machinesFile(), QByteArray("g:7\n"));
    }

    void editorThatFailsTheSecondTimeSavesNothing()
    {
        writeMachines("a:1\n");
        setEditor("[ -e \"$0.again\" ] && exit 1\ntouch \"$0.again\"; echo b:x >>\"$1\"");
        const Desk::Result result = onTerminal({text("machines"), text("edit")}, "e\n\x04");
        QVERIFY2(result.output.contains(
                     text("the editor did not end well; nothing was saved; what you edited is in")),
                 qPrintable(result.output));
        QCOMPARE(result.output.count(text("what you edited is in")), 1);
        QCOMPARE(result.exitCode, 1);
        QCOMPARE(machinesFile(), QByteArray("a:1\n"));
        QCOMPARE(copies().size(), 1);
    }

    void missingEditorIsToldOf_data()
    {
        QTest::addColumn<QString>("editor");
        QTest::newRow("no such program") << "/no/such/editor";
        QTest::newRow("none at all") << "";
    }

    void missingEditorIsToldOf()
    {
        QFETCH(QString, editor);
        m_desk->set("VISUAL", editor);
        m_desk->set("PATH", m_desk->path("nowhere"));
        writeMachines("a:1\n");
        const Desk::Result result = machines("edit");
        QCOMPARE(result.exitCode, 2);
        QCOMPARE(machinesFile(), QByteArray("a:1\n"));
        QCOMPARE(copies(), QStringList());
        QVERIFY2(result.errors.contains(editor.isEmpty()
                                            ? text("there is no editor; VISUAL or EDITOR names one")
                                            : text("cannot start the editor /no/such/editor: ")),
                 qPrintable(result.errors));
    }

    void commonEditorIsTakenWhereNoneIsNamed()
    {
        setEditor("echo d:4 >\"$1\"");
        m_desk->unset("VISUAL");
        QVERIFY(QDir().mkpath(m_desk->path("programs")));
        QVERIFY(QFile::rename(m_desk->path("editor"), m_desk->path("programs/vi")));
        m_desk->set("PATH", m_desk->path("programs"));
        QCOMPARE(machines("edit").exitCode, 0);
        QCOMPARE(machinesFile(), QByteArray("d:4\n"));
    }

    void editNeedsAFolderToWriteIn()
    {
        QVERIFY(QDir(m_desk->path("user")).removeRecursively());
        writeFile(m_desk->path("user"), "a file");
        setEditor("true");
        const Desk::Result result = machines("edit");
        QCOMPARE(result.exitCode, 2);
        QVERIFY2(result.errors.contains(text("cannot write in ") + m_desk->path("user")),
                 qPrintable(result.errors));
        QCOMPARE(contentOf(m_desk->path("user")), QByteArray("a file"));
    }

    void folderInPlaceOfTheFileIsNotEdited()
    {
        QVERIFY(QDir().mkpath(m_desk->path("user/machines.kest")));
        setEditor("true");
        const Desk::Result result = machines("edit");
        QCOMPARE(result.exitCode, 2);
        QVERIFY(result.errors.contains(text("it is a folder")));
        QCOMPARE(copies(), QStringList());
    }

    // "%" is the line for this machine.
    void useLocalLetsTheFileNameThisMachine_data()
    {
        QTest::addColumn<QByteArray>("words");
        QTest::addColumn<QByteArray>("before");
        QTest::addColumn<QByteArray>("after");
        QTest::addColumn<int>("exitCode");
        const QByteArray plain = "use-local";
        const QByteArray replacing = "use-local --replace";
        // clang-format off
        QTest::newRow("comments")         << plain     << QByteArray("# a:1\n\n")           << QByteArray("# a:1\n\n%\n")            << 0;
        QTest::newRow("no last line end") << plain     << QByteArray("# a:1")               << QByteArray("# a:1\n%\n")              << 0;
        QTest::newRow("empty")            << plain     << QByteArray("")                    << QByteArray("%\n")                     << 0;
        QTest::newRow("hosts")            << plain     << QByteArray("a:1\nb\n")            << QByteArray("a:1\nb\n")               << 1;
        QTest::newRow("errors")           << plain     << QByteArray("a:x\n")               << QByteArray("a:x\n")                  << 1;
        QTest::newRow("this machine")     << plain     << QByteArray("%\n")                 << QByteArray("%\n")                    << 0;
        QTest::newRow("and another")      << plain     << QByteArray("%\nb\n")              << QByteArray("%\nb\n")                 << 1;
        QTest::newRow("binary")           << plain     << QByteArray("a\0b", 3)             << QByteArray("a\0b", 3)                << 2;
        QTest::newRow("replaced")         << replacing << QByteArray("#c\n\n a:1 # d\nb:x\n") << QByteArray("#c\n\n#  a:1 # d\n# b:x\n%\n") << 0;
        QTest::newRow("byte order mark")  << replacing << QByteArray("\xef\xbb\xbf" "a:1\n") << QByteArray("# a:1\n%\n")          << 0;
        QTest::newRow("Windows")          << replacing << QByteArray("a:1\r\nb\r\n")        << QByteArray("# a:1\r\n# b\r\n%\n")  << 0;
        QTest::newRow("nothing replaced") << replacing << QByteArray("# a:1\n")             << QByteArray("# a:1\n%\n")             << 0;
        QTest::newRow("done already")     << replacing << QByteArray("%\n")                 << QByteArray("%\n")                    << 0;
        QTest::newRow("binary replaced")  << replacing << QByteArray("a\0b", 3)             << QByteArray("a\0b", 3)                << 2;
        // clang-format on
    }

    void useLocalLetsTheFileNameThisMachine()
    {
        QFETCH(QByteArray, words);
        QFETCH(QByteArray, before);
        QFETCH(QByteArray, after);
        QFETCH(int, exitCode);
        before.replace("%", localLine());
        after.replace("%", localLine());
        writeMachines(before);
        const Desk::Result result = machines(words);
        QCOMPARE(machinesFile(), after);
        QCOMPARE(result.exitCode, exitCode);
        QCOMPARE(result.errors.isEmpty(), exitCode == 0);
        QVERIFY2((result.output + result.errors).contains(m_desk->path("user/machines.kest")),
                 qPrintable(result.output + result.errors));
        if (exitCode == 0) {
            QCOMPARE(machines("show").exitCode, 0);
        }
        QCOMPARE(QDir(m_desk->path("user")).entryList(QDir::Files | QDir::Hidden),
                 QStringList(text("machines.kest")));
    }

    void useLocalSaysWhatItDoesNotReplace()
    {
        writeMachines("a:1\nb:2\nc:3\nd:4\ne:5\nf:6\ng\n");
        QCOMPARE(machines("use-local").errors,
                 text("kestdesk: %1 names hosts already: a:1, b:2, c:3, d:4, e:5 and 2 more; "
                      "\"kestdesk machines use-local --replace\" saves %1 with the line \"%2\" and "
                      "keeps the others as comments\n")
                     .arg(m_desk->path("user/machines.kest"), QString::fromLatin1(localLine())));
    }

    void useLocalMakesTheFile_data()
    {
        QTest::addColumn<QByteArray>("installed");
        QTest::addColumn<QByteArray>("words");
        QTest::addColumn<QByteArray>("after"); // nothing: there is no file
        QTest::addColumn<int>("exitCode");
        // clang-format off
        QTest::newRow("no file")         << QByteArray()          << QByteArray("use-local")           << QByteArray("# The machines for parallel runs, one a line:\n#\n#   host:count\n#\n%\n") << 0;
        QTest::newRow("comments")        << QByteArray("# c\n")   << QByteArray("use-local")           << QByteArray("# c\n%\n")        << 0;
        QTest::newRow("hosts")           << QByteArray("far:2\n") << QByteArray("use-local")           << QByteArray()                  << 1;
        QTest::newRow("hosts, replaced") << QByteArray("far:2\n") << QByteArray("use-local --replace") << QByteArray("# far:2\n%\n")    << 0;
        // clang-format on
    }

    void useLocalMakesTheFile()
    {
        QFETCH(QByteArray, installed);
        QFETCH(QByteArray, words);
        QFETCH(QByteArray, after);
        QFETCH(int, exitCode);
        const QString shared = m_desk->path("home/shared/mpi/machines.kest");
        if (!installed.isEmpty()) {
            writeFile(shared, installed);
        }
        QVERIFY(QDir(m_desk->path("user")).removeRecursively());
        const Desk::Result result = machines(words);
        QCOMPARE(result.exitCode, exitCode);
        QCOMPARE(machinesFile(), after.replace("%", localLine()));
        QCOMPARE(contentOf(shared), installed);
    }

    void useLocalNeedsAFolderToWriteIn()
    {
        QVERIFY(QDir(m_desk->path("user")).removeRecursively());
        writeFile(m_desk->path("user"), "a file");
        const Desk::Result result = machines("use-local");
        QCOMPARE(result.exitCode, 2);
        QVERIFY2(result.errors.contains(text("machines.kest cannot be written: ")),
                 qPrintable(result.errors));
    }

    void linkStaysALink()
    {
        writeFile(m_desk->path("shared.kest"), "a:1\n");
        QVERIFY(QFile::link(m_desk->path("shared.kest"), m_desk->path("user/machines.kest")));
        setEditor("echo b:2 >\"$1\"");
        QCOMPARE(machines("edit").exitCode, 0);
        QVERIFY(QFileInfo(m_desk->path("user/machines.kest")).isSymLink());
        QCOMPARE(contentOf(m_desk->path("shared.kest")), QByteArray("b:2\n"));
    }

    void usersFolderMayBeRelativeOrUnset_data()
    {
        QTest::addColumn<QString>("folder");
        QTest::addColumn<QString>("file");
        QTest::newRow("relative") << "../user"
                                  << "user/machines.kest";
        QTest::newRow("unset") << QString() << "settings/kest/machines.kest";
    }

    void usersFolderMayBeRelativeOrUnset()
    {
        QFETCH(QString, folder);
        QFETCH(QString, file);
        if (folder.isEmpty()) {
            m_desk->unset("KEST_USER_HOME");
        } else {
            m_desk->set("KEST_USER_HOME", folder);
        }
        setEditor("cd /; echo e:5 >\"$1\"");
        QCOMPARE(machines("edit").exitCode, 0);
        QCOMPARE(contentOf(m_desk->path(file)), QByteArray("e:5\n"));
        QCOMPARE(lines(machines("show").output).value(0),
                 m_desk->path(file) + text(" (the user's, in KEST_USER_HOME)"));
    }

    void interruptInTheEditorIsTheEditorsBusiness()
    {
        writeMachines("a:1\n");
        setEditor("trap : INT; kill -INT $PPID; kill -INT $$; echo f:6 >\"$1\"");
        QCOMPARE(machines("edit").exitCode, 0);
        QCOMPARE(machinesFile(), QByteArray("f:6\n"));
    }
};

QTEST_GUILESS_MAIN(tst_kestdesk_machines)
#include "tst_kestdesk_machines.moc"
