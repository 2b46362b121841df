// SPDX-License-Identifier: MIT
#include "MachinesStage.h"

// How "kestdesk machines use-local" lets the file name this machine.
class tst_kestdesk_machines_use_local : public QObject, private MachinesStage
{
    Q_OBJECT

private Q_SLOTS:
    void init() { setUp(); }
    void cleanup() { expectNoProcesses(); }

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
};

QTEST_GUILESS_MAIN(tst_kestdesk_machines_use_local)
#include "tst_kestdesk_machines_use_local.moc"
