// SPDX-License-Identifier: MIT
#include "MachinesStage.h"

#include <csignal>

// What "kestdesk machines edit" saves, and that nothing is lost that it does not save.
class tst_kestdesk_machines_edit : public QObject, private MachinesStage
{
    Q_OBJECT

private Q_SLOTS:
    void init() { setUp(); }
    void cleanup() { expectNoProcesses(); }

    void editSavesWhatIsRight_data()
    {
        QTest::addColumn<QByteArray>("before");
        QTest::addColumn<QByteArray>("script");
        QTest::addColumn<QByteArray>("after");
        // clang-format off
        QTest::newRow("more")        << QByteArray("a:1\n")  << QByteArray("echo b:2 >>\"$1\"")      << QByteArray("a:1\nb:2\n");
        QTest::newRow("with a note") << QByteArray("a:1\n")  << QByteArray(R"(printf 'a:1\r\n' >"$1")") << QByteArray("a:1\r\n");
        QTest::newRow("renamed")     << QByteArray("a:1\n")  << QByteArray(R"(echo b >"$1.x"; mv "$1.x" "$1")") << QByteArray("b\n");
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
        setEditor(R"(echo theirs:1 >"$KEST_USER_HOME/machines.kest"; echo mine:1 >"$1")");
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
        writeScript(m_desk->path("wrapper"), "[ \"$1\" = -w ] || exit 5\necho c:3 >\"$2\"\n");
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

    void requestToStopEndsTheEditorAndKeepsWhatWasTyped_data()
    {
        QTest::addColumn<int>("signal");
        QTest::newRow("terminated") << SIGTERM;
        QTest::newRow("terminal closed") << SIGHUP;
    }

    void requestToStopEndsTheEditorAndKeepsWhatWasTyped()
    {
        QFETCH(int, signal);
        writeMachines("a:1\n");
        setEditor(R"(echo b:2 >>"$1"; touch "$1.typed"; exec sleep 1000)");
        QProcess process;
        m_desk->start(process, {text("machines"), text("edit")});
        const auto isTyped = [this] {
            return !QDir(m_desk->path("user")).entryList({text("*.typed")}).isEmpty();
        };
        QTRY_VERIFY_WITH_TIMEOUT(isTyped(), 30000);
        QCOMPARE(::kill(static_cast<pid_t>(process.processId()), signal), 0);
        const Desk::Result result = Desk::resultOf(process);
        QCOMPARE(result.exitCode, 1);
        QVERIFY2(result.errors.contains(text("the editor did not end well; nothing was saved; what "
                                             "you edited is in ")),
                 qPrintable(result.errors));
        QCOMPARE(machinesFile(), QByteArray("a:1\n"));
        const QStringList left = copies().filter(QRegularExpression(text("\\.kest$")));
        QCOMPARE(left.size(), 1);
        QCOMPARE(contentOf(m_desk->path(text("user/") + left.first())), QByteArray("a:1\nb:2\n"));
    }

    void interruptInTheEditorIsTheEditorsBusiness()
    {
        writeMachines("a:1\n");
        setEditor("trap : INT; kill -INT $PPID; kill -INT $$; echo f:6 >\"$1\"");
        QCOMPARE(machines("edit").exitCode, 0);
        QCOMPARE(machinesFile(), QByteArray("f:6\n"));
    }
};

QTEST_GUILESS_MAIN(tst_kestdesk_machines_edit)
#include "tst_kestdesk_machines_edit.moc"
