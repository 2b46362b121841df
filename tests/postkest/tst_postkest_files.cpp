// SPDX-License-Identifier: MIT
#include "PostkestRun.h"

#include <SpecialFile.h>

#include <QDir>
#include <QtTest>

// Results that postkest cannot read, and files that it must not or cannot write.
class tst_postkest_files : public QObject, protected PostkestRun
{
    Q_OBJECT

private Q_SLOTS:
    void init() { setUp(); }

    void badResultsAreToldAndNothingIsWritten_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QString>("reason");
        // clang-format off
        QTest::newRow("missing")       << text("none.csv")  << QByteArray()                   << text("none.csv: No such file");
        QTest::newRow("folder")        << text(".")         << QByteArray()                   << text("it is a folder");
        QTest::newRow("empty")         << text("bad.csv")   << QByteArray("")                 << text("bad.csv: it is no table of results");
        QTest::newRow("header only")   << text("bad.csv")   << header                         << text("it holds no results");
        QTest::newRow("other columns") << text("bad.csv")   << QByteArray("f,r\n1,2\n")       << text("its first line should be");
        QTest::newRow("words")         << text("bad.csv")   << header + "ten,1,2,3\n"         << text("line 2 is no result: \"ten,1,2,3\"");
        QTest::newRow("nan")           << text("bad.csv")   << header + "nan,1,2,3\n"         << text("line 2 is no result");
        QTest::newRow("inf")           << text("bad.csv")   << header + "1,1,1,1\ninf,1,2,3"  << text("line 3 is no result");
        QTest::newRow("cut line")      << text("bad.csv")   << header + "1,1,1,1\n2,1"        << text("line 3 is no result: \"2,1\"");
        // clang-format on
    }

    void badResultsAreToldAndNothingIsWritten()
    {
        QFETCH(QString, name);
        QFETCH(QByteArray, content);
        QFETCH(QString, reason);
        if (name == text("bad.csv")) {
            write("bad.csv", content);
        }
        write("out.png", "old picture");
        const QStringList before = files();
        const Answer answer = batch({text("second.csv"), name, text("--output"), text("out.png")});
        QCOMPARE(answer.exitCode, 1);
        QVERIFY2(answer.errors.startsWith(text("postkest: ")) && answer.errors.contains(reason),
                 qPrintable(answer.errors));
        QCOMPARE(answer.output, QString());
        QCOMPARE(contentOf(path("out.png")), QByteArray("old picture"));
        QCOMPARE(files(), before);
    }
    void emptyNameIsRefused()
    {
        const Answer answer =
            batch({text("second.csv"), QString(), text("--output"), text("out.png")});
        QCOMPARE(answer.exitCode, 2);
        QVERIFY2(answer.errors.contains(text("is empty")), qPrintable(answer.errors));
        QVERIFY(!QFile::exists(path("out.png")));
    }

    void pipeIsNotWaitedFor()
    {
        SPECIAL_FILE_OR_SKIP(S_IFIFO, path("pipe.csv"));
        const Answer answer = batch({text("pipe.csv")});
        QCOMPARE(answer.exitCode, 1);
        QVERIFY2(answer.errors.contains(text("not a regular file")), qPrintable(answer.errors));
    }

    void unreadableResultAndUnwritableFolderAreTold()
    {
        QVERIFY(QFile::setPermissions(m_folder->path(), QFile::Permissions(0x7755)));
        QVERIFY(QFile::setPermissions(path("second.csv"), QFile::WriteOwner));
        const Answer unreadable = run({text("--non-interactive"), text("second.csv")}, 0, true);
        QCOMPARE(unreadable.exitCode, 1);
        QVERIFY2(unreadable.errors.contains(text("Permission denied")),
                 qPrintable(unreadable.errors));

        QVERIFY(QDir(m_folder->path()).mkdir(text("closed")));
        QVERIFY(QFile::setPermissions(path("closed"), QFile::ReadOwner | QFile::ExeOwner));
        const Answer unwritable = run({text("--non-interactive"), text("first run.csv"),
                                       text("--output"), text("closed/a.png")},
                                      0, true);
        QCOMPARE(unwritable.exitCode, 1);
        QVERIFY2(unwritable.errors.contains(text("closed/a.png cannot be written")),
                 qPrintable(unwritable.errors));
    }

    void fullDiskKeepsTheOldFile()
    {
        for (const char* name : {"out.png", "out.svg", "out.csv"}) {
            write(name, "old");
            const QStringList before = files();
            const Answer answer = run({text("--non-interactive"), text("first run.csv"),
                                       text("second.csv"), text("--output"), text(name)},
                                      100);
            QCOMPARE(answer.exitCode, 1);
            QVERIFY2(
                answer.errors.contains(text(name) + text(" cannot be written: File too large")),
                qPrintable(answer.errors));
            QCOMPARE(contentOf(path(name)), QByteArray("old"));
            QCOMPARE(files(), before);
        }
    }

    void pipeIsNotReplacedByAFile()
    {
        SPECIAL_FILE_OR_SKIP(S_IFIFO, path("pipe"));
        QVERIFY(QFile::link(path("pipe"), path("link.csv")));
        const Answer answer = batch({text("second.csv"), text("--output"), text("link.csv")});
        QCOMPARE(answer.exitCode, 1);
        QVERIFY2(answer.errors.contains(text("not a regular file")), qPrintable(answer.errors));
        QCOMPARE(SpecialFile::kindOf(path("pipe")), int(S_IFIFO));
    }

    void resultsOfOtherRunsAreNotOverwritten()
    {
        for (const char* target : {"first run.csv", "./first run.csv"}) {
            const QByteArray before = contentOf(path(target));
            const Answer answer = batch({text("second.csv"), text("--output"), text(target)});
            QCOMPARE(answer.exitCode, 1);
            QVERIFY2(answer.errors.contains(text("is not overwritten")), qPrintable(answer.errors));
            QCOMPARE(contentOf(path(target)), before);
        }
        // A table of several results is none of a run.
        QCOMPARE(batch({text("second.csv"), text("--output"), text("table.csv")}).exitCode, 0);
        QCOMPARE(batch({text("first run.csv"), text("--output"), text("table.csv")}).exitCode, 0);
        QVERIFY(contentOf(path("table.csv")).contains("\"first run\""));
    }

    void resultsAreNotOverwritten()
    {
        const QByteArray before = contentOf(path("second.csv"));
        QVERIFY(QFile::link(path("second.csv"), path("link.csv")));
        for (const char* target : {"second.csv", "./second.csv", "link.csv"}) {
            const Answer answer =
                batch({text("first run.csv"), text("second.csv"), text("--output"), text(target)});
            QCOMPARE(answer.exitCode, 1);
            QVERIFY2(answer.errors.contains(text("not overwritten")), qPrintable(answer.errors));
            QCOMPARE(contentOf(path("second.csv")), before);
        }
        const Answer linked = batch({text("link.csv"), text("--output"), text("second.csv")});
        QCOMPARE(linked.exitCode, 1);
        QCOMPARE(contentOf(path("second.csv")), before);
    }
};

QTEST_MAIN(tst_postkest_files)
#include "tst_postkest_files.moc"
