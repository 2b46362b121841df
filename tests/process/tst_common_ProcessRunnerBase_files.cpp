// SPDX-License-Identifier: MIT
#include "LineRunner.h"

#include <RecordingObserver.h>
#include <SystemSkips.h>

#include <common_ProcessRunnerBase.h>

#include <QTemporaryDir>
#include <QtTest>

#include <thread>

#ifdef Q_OS_UNIX
#include <sys/file.h>
#endif

class tst_common_ProcessRunnerBase_files : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { qunsetenv(logVariable); }

    void cleanup() { QCOMPARE(common_ProcessRunnerBase::getProcessCount(), 0); }

    void argumentsArriveAsTheyAre_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::newRow("none") << QStringList();
        QTest::newRow("empty") << QStringList{text("")};
        QTest::newRow("blanks, quotes, line breaks") << QStringList{text("a b"),
                                                                    text("\"quoted\""),
                                                                    text("'"),
                                                                    text("line\nbreak"),
                                                                    text("\\"),
                                                                    text("$HOME;`ls`*"),
                                                                    text("\xc3\xa9\xe2\x82\xac"),
                                                                    text("")};
        QTest::newRow("100 KB") << QStringList{QString(100000, QLatin1Char('x'))};
        QStringList many;
        for (int i = 0; i < 10000; ++i) {
            many.append(QString::number(i));
        }
        QTest::newRow("10,000") << many;
    }

    void argumentsArriveAsTheyAre()
    {
        QFETCH(QStringList, arguments);
        SKIP_WITHOUT_LONG_ARGUMENTS(arguments.join(QLatin1Char(' ')));
        LineRunner runner;
        setUp(runner, QStringList(text("arguments")) + arguments);
        QVERIFY(runWithEventLoop(runner));
        QStringList arrived;
        QByteArray hexadecimal;
        for (const QString& piece : qAsConst(runner.output)) {
            hexadecimal += piece.toLatin1();
            if (piece.endsWith(QLatin1Char('\n'))) {
                arrived.append(QString::fromUtf8(QByteArray::fromHex(hexadecimal)));
                hexadecimal.clear();
            }
        }
        QCOMPARE(arrived, arguments);
    }

    void executablePathMayHoldBlanksAndQuotes()
    {
        QTemporaryDir folder;
        const QString program = folder.filePath(text("a \"child\" of 'mine' \xc3\xa9"));
        SKIP_WITHOUT_SYMBOLIC_LINKS();
        QVERIFY(QFile::link(text(KEST_TEST_CHILD), program));
        LineRunner runner;
        runner.setExecutable(QFileInfo(program));
        runner.setArguments(words("out x\\n"));
        QVERIFY(runWithEventLoop(runner));
        QCOMPARE(runner.output, QStringList(text("x\n")));
    }

    void workingDirectoryIsTheChilds()
    {
        const QTemporaryDir folder;
        LineRunner runner;
        setUp(runner, words("directory"));
        runner.setWorkingDirectory(folder.path());
        QCOMPARE(runner.getWorkingDirectory(), folder.path());
        QVERIFY(runWithEventLoop(runner));
        QCOMPARE(runner.output, QStringList(QDir::toNativeSeparators(
                                                QFileInfo(folder.path()).canonicalFilePath()) +
                                            text("\n")));
    }

    void environmentEntriesAreSimplifiedOrIgnored_data()
    {
        QTest::addColumn<QStringList>("entries");
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("value");
        // clang-format off
        QTest::newRow("plain")             << QStringList{text("A=x")}                     << "A" << "x";
        QTest::newRow("blanks simplified") << QStringList{text("A = x  y")}                << "A" << "x y";
        QTest::newRow("all of them")       << QStringList{text("A = x  y"), text("B=1=2"), text("  ")} << "A" << "x y";
        QTest::newRow("two equal signs")   << QStringList{text("B=1=2")}                   << "B" << "unset";
        QTest::newRow("no equal sign")     << QStringList{text("B")}                       << "B" << "unset";
        QTest::newRow("empty value")       << QStringList{text("A=")}                      << "A" << "";
        QTest::newRow("overwritten")       << QStringList{text("KEST_T_OUTER=new")}        << "KEST_T_OUTER" << "new";
        QTest::newRow("later one wins")    << QStringList{text("A=1"), text("A=2")}        << "A" << "2";
        QTest::newRow("others stay")       << QStringList{text("A=1")}                     << "KEST_T_OUTER" << "old";
        QTest::newRow("none")              << QStringList()                                << "KEST_T_OUTER" << "old";
        // clang-format on
    }

    void environmentEntriesAreSimplifiedOrIgnored()
    {
        QFETCH(QStringList, entries);
        QFETCH(QString, name);
        QFETCH(QString, value);
        qputenv("KEST_T_OUTER", "old");
        LineRunner runner;
        setUp(runner, {text("variable"), name});
        runner.setProcessEnvironment(entries);
        QVERIFY(runWithEventLoop(runner));
        QCOMPARE(runner.output, QStringList(value + text("\n")));
    }

    void laterEnvironmentTakesThePlaceOfTheEarlier()
    {
        LineRunner runner;
        setUp(runner, words("variable A"));
        runner.setProcessEnvironment({text("A=1")});
        runner.setProcessEnvironment({text("B=1")});
        QVERIFY(runWithEventLoop(runner));
        QCOMPARE(runner.output, QStringList(text("unset\n")));
    }

    void temporaryFilesAreDeletedAfterTheObserversKnow()
    {
        QTemporaryDir folder;
        const QString file = folder.filePath(text("machines"));
        LineRunner runner;
        RecordingObserver observer(&runner);
        bool thereAtTheEnd = false;
        observer.then = [&](const QString& event) {
            if (event == text("done")) {
                thereAtTheEnd = QFile::exists(file);
            }
        };
        setUp(runner, {text("touch"), file});
        const QStringList files = {folder.filePath(text("gone already")), file};
        QCOMPARE(runner.getTemporaryFilenames(), QStringList());
        runner.setTemporaryFilenames(files);
        QCOMPARE(runner.getTemporaryFilenames(), files);
        QVERIFY(runWithEventLoop(runner));
        QVERIFY(thereAtTheEnd);
        QVERIFY(!QFile::exists(file));

        observer.then = [](const QString&) {};
        QVERIFY(runWithEventLoop(runner)); // makes it anew: the list was kept
        QVERIFY(!QFile::exists(file));

        runner.setTemporaryFilenames({});
        QVERIFY(runWithEventLoop(runner));
        QVERIFY(QFile::exists(file));
    }

    void temporaryLinkIsDeletedAndNotItsTarget()
    {
        QTemporaryDir folder;
        const QString target = folder.filePath(text("target"));
        const QString link = folder.filePath(text("link"));
        SKIP_WITHOUT_SYMBOLIC_LINKS();
        QFile(target).open(QIODevice::WriteOnly);
        QVERIFY(QFile::link(target, link));
        LineRunner runner;
        setUp(runner, words("exit 0"));
        runner.setTemporaryFilenames({link, folder.path()});
        QVERIFY(runWithEventLoop(runner));
        QVERIFY(!QFileInfo(link).isSymLink());
        QVERIFY(QFile::exists(target));
    }

    void temporaryFileThatSomebodyLocksIsDeleted()
    {
#ifdef Q_OS_UNIX
        QTemporaryDir folder;
        const QString locked = folder.filePath(text("locked"));
        QFile file(locked);
        QVERIFY(file.open(QIODevice::ReadWrite));
        QCOMPARE(::flock(file.handle(), LOCK_EX), 0);
        LineRunner runner;
        setUp(runner, words("exit 0"));
        runner.setTemporaryFilenames({locked});
        QVERIFY(runWithEventLoop(runner));
        QVERIFY(!QFile::exists(locked));
#else
        QSKIP("on Windows, a file that is locked is not deleted");
#endif
    }

    // By another thread or program, for a moment.
    void temporaryFileThatIsReadAtTheEndIsDeleted()
    {
        QTemporaryDir folder;
        QFile file(folder.filePath(text("machines")));
        QVERIFY(file.open(QIODevice::ReadWrite));
        LineRunner runner;
        RecordingObserver observer(&runner);
        std::thread reader;
        observer.then = [&](const QString& event) {
            if (event == text("done")) {
                reader = std::thread([&file] {
                    QThread::msleep(200);
                    file.close();
                });
            }
        };
        setUp(runner, words("exit 0"));
        runner.setTemporaryFilenames({file.fileName()});
        QVERIFY(runWithEventLoop(runner));
        reader.join();
        QVERIFY(!file.exists());
    }

    void temporaryFileThatCannotBeDeletedDoesNotDisturbTheRun()
    {
        QTemporaryDir folder;
#ifdef Q_OS_WIN
        QFile openFile(folder.filePath(text("open")));
        QVERIFY(openFile.open(QIODevice::ReadWrite));
        const QString kept = openFile.fileName();
#else
        const QString kept = text("/proc/self/status"); // nobody deletes this one
#endif
        const QString last = folder.filePath(text("last"));
        LineRunner runner;
        const RecordingObserver observer(&runner);
        setUp(runner, {text("touch"), last});
        runner.setTemporaryFilenames({kept, last});
        QVERIFY(runWithEventLoop(runner));
        QVERIFY(QFile::exists(kept));
        QVERIFY(!QFile::exists(last));
        QCOMPARE(observer.lifeCycle(),
                 QStringList({text("started"), text("exit code 0"), text("done")}));
        QVERIFY(runWithEventLoop(runner)); // the runner can be used again
    }

    void temporaryFilesStayWhenTheStartFailsAndWhenTheRunnerGoes()
    {
        QTemporaryDir folder;
        const QString file = folder.filePath(text("machines"));
        QFile(file).open(QIODevice::WriteOnly);
        {
            LineRunner runner;
            runner.setExecutable(text("/no/such/program"));
            runner.setTemporaryFilenames({file});
            QVERIFY(!runner.run());
            QVERIFY(QFile::exists(file));
        }
        QVERIFY(QFile::exists(file));
    }

    void temporaryFilesOfARunThatACallbackStartedStay()
    {
        QTemporaryDir folder;
        const QString first = folder.filePath(text("first"));
        const QString second = folder.filePath(text("second"));
        const QString shared = folder.filePath(text("shared"));
        for (const QString& file : {first, second, shared}) {
            QFile(file).open(QIODevice::WriteOnly);
        }
        LineRunner runner;
        RecordingObserver observer(&runner);
        observer.then = [&](const QString& event) {
            if (event == text("done")) {
                observer.then = [](const QString&) {};
                runner.setArguments({text("wait-for-file"), folder.filePath(text("go"))});
                runner.setTemporaryFilenames({second, shared});
                QVERIFY(runner.run());
            }
        };
        setUp(runner, words("exit 0"));
        runner.setTemporaryFilenames({first, shared});
        QVERIFY(runner.run());
        QVERIFY(QTest::qWaitFor([&] { return !QFile::exists(first); }));
        QTest::qWait(20); // in which nothing may delete the others
        QVERIFY(runner.isRunning());
        QVERIFY(QFile::exists(second));
        QVERIFY(QFile::exists(shared));
        QFile(folder.filePath(text("go"))).open(QIODevice::WriteOnly);
        QVERIFY(QTest::qWaitFor([&runner] { return !runner.isRunning(); }));
        QVERIFY(!QFile::exists(second));
        QVERIFY(!QFile::exists(shared));
    }
};

QTEST_GUILESS_MAIN(tst_common_ProcessRunnerBase_files)
#include "tst_common_ProcessRunnerBase_files.moc"
