// SPDX-License-Identifier: MIT
#include "MachinesStage.h"

#include <MachinesCases.h>
#include <SpecialFile.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>

#include <unistd.h>

namespace {

QString shownEntries(const QJsonObject& report)
{
    const QJsonArray entries = report.value(text("entries")).toArray();
    QStringList result;
    for (const auto& value : entries) {
        const QJsonObject entry = value.toObject();
        result.append(QStringLiteral("%1 %2 %3")
                          .arg(entry.value(text("line")).toInt())
                          .arg(entry.value(text("host")).toString())
                          .arg(entry.value(text("processes")).toInt()));
    }
    return result.join(text(", "));
}

QString shownFindings(const QJsonObject& report)
{
    const QJsonArray findings = report.value(text("findings")).toArray();
    QStringList result;
    for (const auto& value : findings) {
        const QJsonObject finding = value.toObject();
        result.append(QString::number(finding.value(text("line")).toInt()) + QLatin1Char(' ') +
                      finding.value(text("severity")).toString() + text(" [") +
                      finding.value(text("text")).toString() + text("] ") +
                      finding.value(text("reason")).toString());
    }
    return result.join(text("; "));
}

} // namespace

// What "kestdesk machines show" says of a file.
class tst_kestdesk_machines_show : public QObject, private MachinesStage
{
    Q_OBJECT

private Q_SLOTS:
    void init() { setUp(); }
    void cleanup() { expectNoProcesses(); }

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
        QTest::newRow("IPv6")      << QByteArray("[::1]:2\na\n")   << "line 1, warning: [::1]:2: the processes of an address in brackets are left out of the total, and a parallel run needs a name instead" << "in all: 1 processes, hosts: 2" << 0;
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

    void verdictIsThatOfTheComponents_data() { addMachinesCases(); }

    void verdictIsThatOfTheComponents()
    {
        QFETCH(int, row);
        const MachinesCase& expected = machinesCases().at(row);
        writeMachines(expected.content);
        const Desk::Result result = machines("show --json");
        const QJsonObject report = QJsonDocument::fromJson(result.output.toUtf8()).object();
        QCOMPARE(shownFindings(report), QString::fromUtf8(expected.findings));
        QCOMPARE(shownEntries(report), QString::fromUtf8(expected.entries));
        QCOMPARE(result.exitCode, expected.isValid ? 0 : 1);
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
        SPECIAL_FILE_OR_SKIP(S_IFIFO, m_desk->path("user/machines.kest"));
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
        QTest::addColumn<QString>("last");
        QTest::addColumn<int>("errors"); // that name their line
        QTest::addColumn<int>("entries");
        // clang-format off
        QTest::newRow("hosts")    << QByteArray("node1:2\n")  << "  ... and 999950 lines more"               << "... and 999979 more of kind \"warning\"" << 0  << 50;
        QTest::newRow("mistakes") << QByteArray("node1;:2\n") << "... and 999980 more of kind \"error\"" << "... and 999980 more of kind \"error\""   << 20 << 0;
        // clang-format on
    }

    void millionLinesDoNotFloodTheTerminal()
    {
        QFETCH(QByteArray, line);
        QFETCH(QString, more);
        QFETCH(QString, last);
        QFETCH(int, errors);
        QFETCH(int, entries);
        writeMachines(line.repeated(1000000));
        const Desk::Result result = machines("show");
        const QStringList shown = lines(result.output);
        QVERIFY2(shown.contains(more), qPrintable(result.output.left(5000)));
        QCOMPARE(shown.constLast(), last);
        QVERIFY(shown.size() < 100);
        QCOMPARE(shown.filter(text(", error: ")).size(), errors);
        QCOMPARE(shown.filter(QRegularExpression(text("^  node1 +2$"))).size(), entries);
        QCOMPARE(shown.contains(text("error: it counts 2000000 processes and the limit is 4096")),
                 entries > 0);
        QCOMPARE(result.exitCode, 1);
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
};

QTEST_GUILESS_MAIN(tst_kestdesk_machines_show)
#include "tst_kestdesk_machines_show.moc"
