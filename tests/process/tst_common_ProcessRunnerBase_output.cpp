// SPDX-License-Identifier: MIT
#include "LineRunner.h"

#include <LatinLocale.h>
#include <RecordingObserver.h>

#include <common_ProcessRunnerBase.h>

#include <QDateTime>
#include <QTemporaryDir>
#include <QtTest>

namespace {

// Qt does not read every date that it writes in the user's language, so dates are compared as
// texts.
bool isDateOfNow(const QString& text)
{
    constexpr int longestTest = 120; // seconds
    const QDateTime now = QDateTime::currentDateTime();
    for (int ago = 0; ago < longestTest; ++ago) {
        if (now.addSecs(-ago).toString(Qt::TextDate) == text) {
            return true;
        }
    }
    return false;
}

// Of a text file.
#ifdef Q_OS_WIN
const char* const lineEnd = "\r\n";
#else
const char* const lineEnd = "\n";
#endif

QString logOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

} // namespace

class tst_common_ProcessRunnerBase_output : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { qunsetenv(logVariable); }

    void cleanup() { QCOMPARE(common_ProcessRunnerBase::getProcessCount(), 0); }

    void crashIsToldOnceAndTheLinesBeforeItAreDelivered()
    {
        LineRunner runner;
        const RecordingObserver observer(&runner);
        setUp(runner, words("lines 5000 55 out partial crash"));
        QVERIFY(runWithEventLoop(runner));
        QCOMPARE(runner.output.size(), 5000);
        QCOMPARE(observer.lifeCycle().size(), 3);
        QCOMPARE(observer.lifeCycle().constLast(), text("done"));
        QVERIFY(!runner.normalExit());
    }

    void linesKeepTheirEndsAndBytes_data()
    {
        QTest::addColumn<QString>("written"); // in the child's escapes
        QTest::addColumn<QStringList>("lines");
        const QString replacement(QChar::ReplacementCharacter);
        // clang-format off
        QTest::newRow("empty line")           << R"(\n)"              << QStringList{text("\n")};
        QTest::newRow("carriage return")      << R"(a\r\nb\rc\n)"  << QStringList{text("a\r\n"), text("b\rc\n")};
        QTest::newRow("no line end")          << "abc"              << QStringList();
        QTest::newRow("tail without line end") << R"(a\nbc)"          << QStringList{text("a\n")};
        QTest::newRow("UTF-8")                << R"(\xc3\xa9\n)"    << QStringList{text("\xc3\xa9\n")};
        QTest::newRow("invalid UTF-8")        << R"(\xffa\n)"        << QStringList{replacement + text("a\n")};
        QTest::newRow("zero")                 << R"(a\0b\nc\n)"     << QStringList{QString(QStringLiteral("a\0b\n")), text("c\n")};
        // clang-format on
    }

    void linesKeepTheirEndsAndBytes()
    {
        QFETCH(QString, written);
        QFETCH(QStringList, lines);
        LineRunner runner;
        setUp(runner, {text("out"), written});
        QVERIFY(runWithEventLoop(runner));
        QCOMPARE(runner.output, lines);
        QVERIFY(runner.errors.isEmpty());
        setUp(runner, {text("err"), written});
        runner.output.clear();
        QVERIFY(runWithEventLoop(runner));
        QCOMPARE(runner.errors, lines);
        QVERIFY(runner.output.isEmpty());
    }

    void binaryNoiseIsSurvived()
    {
#ifdef Q_OS_WIN
        constexpr int count = 7000; // a command line has at most 32767 characters
#else
        constexpr int count = 20000;
#endif
        QByteArray escapes;
        for (int i = 0; i < count; ++i) {
            escapes += "\\x" + QByteArray::number((i * 7919 + i / 256) % 256 + 256, 16).right(2);
        }
        LineRunner runner;
        setUp(runner, {text("out"), QString::fromLatin1(escapes), text("out"), text("\\nend\\n")});
        QVERIFY(runWithEventLoop(runner));
        QCOMPARE(runner.output.last(), text("end\n"));
    }

    void longLinesComeInPieces_data()
    {
        QTest::addColumn<int>("bytes");
        QTest::addColumn<int>("pieces");
        QTest::addColumn<int>("lastPiece");
        QTest::newRow("1022") << 1022 << 1 << 1023;
        QTest::newRow("1023") << 1023 << 2 << 1;
        QTest::newRow("1024") << 1024 << 2 << 2;
        QTest::newRow("2046") << 2046 << 3 << 1;
        QTest::newRow("2999, so 3000 with its end") << 2999 << 3 << 954;
        QTest::newRow("1 MB") << 1000000 << 978 << 530;
        QTest::newRow("100 MB") << 100000000 << 97752 << 728;
    }

    void longLinesComeInPieces()
    {
        QFETCH(int, bytes);
        QFETCH(int, pieces);
        QFETCH(int, lastPiece);
        LineRunner runner;
        setUp(runner, {text("long-line"), QString::number(bytes), text("out"), text("next\\n")});
        QVERIFY(runWithEventLoop(runner));
        QCOMPARE(runner.output.size(), pieces + 1);
        for (int i = 0; i < pieces; ++i) {
            QCOMPARE(runner.output[i].size(), i < pieces - 1 ? 1023 : lastPiece);
        }
        QVERIFY(runner.output[pieces - 1].endsWith(QLatin1Char('\n')));
        QCOMPARE(runner.output.last(), text("next\n"));
    }

    void lineWrittenInPartsIsOneLine()
    {
        LineRunner runner;
        setUp(runner, words("out a sleep 30 out b sleep 30 out c\\n"));
        QVERIFY(runWithEventLoop(runner));
        QCOMPARE(runner.output, QStringList(text("abc\n")));
    }

    void partialLineIsNotDeliveredBeforeItsEnd()
    {
        QTemporaryDir folder;
        LineRunner runner;
        setUp(runner, {text("out"), text("a\\nb"), text("wait-for-file"),
                       folder.filePath(text("go")), text("out"), text("c\\n")});
        QVERIFY(runner.run());
        QVERIFY(QTest::qWaitFor([&runner] { return !runner.output.isEmpty(); }));
        QTest::qWait(50); // in which nothing may come
        QCOMPARE(runner.output, QStringList(text("a\n")));
        QFile(folder.filePath(text("go"))).open(QIODevice::WriteOnly);
        QVERIFY(QTest::qWaitFor([&runner] { return !runner.isRunning(); }));
        QCOMPARE(runner.output, QStringList({text("a\n"), text("bc\n")}));
    }

    void floodLosesNoLine_data()
    {
        QTest::addColumn<QString>("command");
        QTest::addColumn<bool>("onOutput");
        QTest::addColumn<bool>("onError");
        QTest::newRow("standard output") << "lines" << true << false;
        QTest::newRow("standard error") << "error-lines" << false << true;
        QTest::newRow("both") << "both-lines" << true << true;
    }

    void floodLosesNoLine()
    {
        QFETCH(QString, command);
        QFETCH(bool, onOutput);
        QFETCH(bool, onError);
        constexpr int count = 1000000;
        LineRunner runner;
        setUp(runner, {command, QString::number(count), text("55")});
        QVERIFY(runWithEventLoop(runner));
        for (const auto& channel :
             {std::make_pair(&runner.output, onOutput), std::make_pair(&runner.errors, onError)}) {
            QCOMPARE(channel.first->size(), channel.second ? count : 0);
            for (int i = 0; i < channel.first->size(); ++i) {
                const QString& line = channel.first->at(i);
                if (line.size() != 55 || line.section(QLatin1Char('.'), 0, 0).toInt() != i) {
                    QFAIL(qPrintable(line));
                }
            }
        }
    }

    void noLogWithoutItsDirectory_data()
    {
        QTest::addColumn<bool>("set");
        QTest::newRow("unset") << false;
        QTest::newRow("empty") << true;
    }

    void noLogWithoutItsDirectory()
    {
        QFETCH(bool, set);
        if (set) {
            qputenv(logVariable, "");
        }
        QTemporaryDir folder;
        const QString before = QDir::currentPath();
        QDir::setCurrent(folder.path());
        {
            LineRunner runner;
            setUp(runner, words("out x\\n"));
            QVERIFY(runWithEventLoop(runner));
            runner.logProcessOutput();
            runner.logToFile(text("nowhere"));
        }
        QDir::setCurrent(before);
        QVERIFY(QDir(folder.path()).isEmpty());
        QVERIFY(!QFile::exists(text("/out.log")));
    }

    void logIsNamedAfterTheFirstArgumentOrTheExecutable()
    {
        QTemporaryDir folder;
        qputenv(logVariable, folder.path().toLocal8Bit());
        {
            LineRunner runner;
            runner.setExecutable(text(KEST_TEST_CHILD));
            runner.setArguments({text("model"), text("other")});
            runner.logProcessOutput();
        }
        QVERIFY(QFile::exists(folder.path() + QDir::separator() + text("model.log")));
        const QString program = text("kest_test_child");
        {
            LineRunner runner;
            runner.setExecutable(program);
            runner.logProcessOutput();
        }
        QVERIFY(QFile::exists(folder.filePath(program + text(".log"))));
    }

    void logNameIsTakenWithItsPath()
    {
        QTemporaryDir folder;
        qputenv(logVariable, folder.path().toLocal8Bit());
        QVERIFY(QDir(folder.path()).mkpath(text("deep/er")));
        {
            LineRunner runner;
            runner.setArguments({text("deep/er/model.nec")});
            runner.logProcessOutput();
        }
        QVERIFY(QFile::exists(folder.filePath(text("deep/er/model.nec.log"))));
    }

    void logDirectoryIsExpanded()
    {
        QTemporaryDir folder;
        qputenv("KEST_T_FOLDER", folder.path().toLocal8Bit());
        qputenv(logVariable, "${KEST_T_FOLDER}");
        {
            LineRunner runner;
            runner.setArguments({text("model")});
            runner.logProcessOutput();
        }
        QVERIFY(QFile::exists(folder.filePath(text("model.log"))));
    }

    void logHoldsADateAndEverythingThatIsRead()
    {
        QTemporaryDir folder;
        qputenv(logVariable, folder.path().toLocal8Bit());
        {
            LineRunner runner;
            qunsetenv(logVariable); // read when the runner was made
            setUp(runner, {text("out"), text(R"(a\r\n\xc3\xa9\ntail)"), text("sleep"), text("30"),
                           text("err"), text("b\\n")});
            QVERIFY(runWithEventLoop(runner));
            QVERIFY(runWithEventLoop(runner));
        }
        const QString log = logOf(folder.filePath(text("out.log")));
        const QString end = text(lineEnd);
        const QStringList lines = log.split(end);
        QCOMPARE(lines.value(0), QString());
        QVERIFY2(isDateOfNow(lines.value(1)), qPrintable(lines.value(1)));
        const QString run = text("a\r\n\xc3\xa9") + end + text("b") + end;
        QCOMPARE(log.mid(lines.value(1).size() + 2 * end.size()), run + run);
    }

    void logIsUtf8InEveryLocale()
    {
        QTemporaryDir folder;
        qputenv(logVariable, folder.path().toLocal8Bit());
        {
            const LatinLocale locale;
            LineRunner runner;
            setUp(runner, {text("out"), text(R"(\xe2\x82\xac\n)")});
            QVERIFY(runWithEventLoop(runner));
        }
        QVERIFY(
            logOf(folder.filePath(text("out.log"))).endsWith(text("\xe2\x82\xac") + text(lineEnd)));
    }

    void logIsAppendedTo()
    {
        QTemporaryDir folder;
        qputenv(logVariable, folder.path().toLocal8Bit());
        for (int i = 0; i < 2; ++i) {
            LineRunner runner;
            setUp(runner, words("out x\\n"));
            QVERIFY(runWithEventLoop(runner));
        }
        const QString log = logOf(folder.filePath(text("out.log")));
        QCOMPARE(log.count(text("x") + text(lineEnd)), 2);
        QCOMPARE(log.count(QLatin1Char('\n')), 6);
    }

    void startThatFailsStillMakesTheLogWithItsDate()
    {
        QTemporaryDir folder;
        qputenv(logVariable, folder.path().toLocal8Bit());
        {
            LineRunner runner;
            runner.setExecutable(text("/no/such/program"));
            runner.setArguments({text("model")});
            QVERIFY(!runner.run());
        }
        const QStringList lines = logOf(folder.filePath(text("model.log"))).split(text(lineEnd));
        QCOMPARE(lines.size(), 3);
        QVERIFY2(isDateOfNow(lines[1]), qPrintable(lines[1]));
    }

    void logThatCannotBeWrittenDoesNotDisturbTheRun_data()
    {
        QTest::addColumn<QByteArray>("directory");
        QTest::addColumn<QString>("firstCommand");
        QTest::newRow("no such directory") << QByteArray("/no/such/directory") << "out";
        QTest::newRow("a file") << QByteArray(KEST_TEST_CHILD) << "out";
        QTest::newRow("name is a directory") << QByteArray("/proc/self") << "out";
    }

    void logThatCannotBeWrittenDoesNotDisturbTheRun()
    {
        QFETCH(QByteArray, directory);
        qputenv(logVariable, directory);
        LineRunner runner;
        const RecordingObserver observer(&runner);
        setUp(runner, words("out x\\n lines 20000 55"));
        QVERIFY(runWithEventLoop(runner));
        QCOMPARE(runner.output.size(), 20001);
        QCOMPARE(observer.lifeCycle(),
                 QStringList({text("started"), text("exit code 0"), text("done")}));
    }
};

QTEST_GUILESS_MAIN(tst_common_ProcessRunnerBase_output)
#include "tst_common_ProcessRunnerBase_output.moc"
