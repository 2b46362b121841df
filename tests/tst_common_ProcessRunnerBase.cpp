#include <FileSizeLimit.h>
#include <RecordingObserver.h>

#include <common_ProcessRunnerBase.h>

#include <QDateTime>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTextCodec>
#include <QThread>
#include <QTimer>
#include <QtTest>

#include <csignal>
#include <memory>
#include <type_traits>
#include <vector>

#include <sys/file.h>
#include <unistd.h>

namespace {

static_assert(std::is_abstract<common_ProcessRunnerBase>::value, "the lines need a meaning");

const char* const logVariable = "DUMP_KERNEL_STDOUT_STDERR";

/// Keeps the lines as they are read and opens what is protected.
class LineRunner : public common_ProcessRunnerBase
{
public:
    using common_ProcessRunnerBase::hideConsole;
    using common_ProcessRunnerBase::logProcessOutput;
    using common_ProcessRunnerBase::logToFile;

    QStringList output;
    QStringList errors;
    std::function<void()> onLine = [] {};

protected:
    void onOutputRecieved(const QString& line) override
    {
        output.append(line);
        onLine();
    }
    void onErrorRecieved(const QString& line) override
    {
        errors.append(line);
        onLine();
    }
};

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

QStringList words(const char* utf8)
{
    return text(utf8).split(QLatin1Char(' '));
}

void setUp(LineRunner& runner, const QStringList& commands)
{
    runner.setExecutable(text(KEST_TEST_CHILD));
    runner.setArguments(commands);
}

/// Runs to the end through the event loop, as applications do. QTest::qWaitFor() would not do: it
/// sleeps between any two looks at the pipes.
bool runWithEventLoop(common_ProcessRunnerBase& runner)
{
    QEventLoop loop;
    RecordingObserver end(&runner);
    end.then = [&loop](const QString& event) {
        if (event == text("done")) {
            loop.exit(1);
        }
    };
    QTimer::singleShot(60000, &loop, [&loop] { loop.exit(0); });
    return runner.run() && loop.exec() == 1;
}

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

QString logOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

int openDescriptors()
{
    return QDir(QStringLiteral("/proc/self/fd"))
        .entryList(QDir::NoDotAndDotDot | QDir::AllEntries)
        .size();
}

/// The children of this process; those that have ended and were not waited for yet only on demand.
int childProcesses(bool withEnded = true)
{
    int children = 0;
    const QStringList processes =
        QDir(QStringLiteral("/proc")).entryList({QStringLiteral("[1-9]*")});
    for (const QString& process : processes) {
        QFile stat(QStringLiteral("/proc/%1/stat").arg(process));
        if (stat.open(QIODevice::ReadOnly)) {
            const QByteArray line = stat.readAll();
            const QList<QByteArray> fields = line.mid(line.lastIndexOf(')') + 2).split(' ');
            const bool own = fields.value(1).toLongLong() == QCoreApplication::applicationPid();
            children += own && (withEnded || fields.value(0) != "Z") ? 1 : 0;
        }
    }
    return children;
}

} // namespace

class tst_common_ProcessRunnerBase : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { qunsetenv(logVariable); }

    void cleanup() { QCOMPARE(common_ProcessRunnerBase::getProcessCount(), 0); }

    void isEmptyAndNotRunningAtFirst()
    {
        const LineRunner runner;
        QVERIFY(!runner.isRunning());
        QVERIFY(runner.getArguments().isEmpty());
        QCOMPARE(runner.getExecutable().filePath(), QString());
        QCOMPARE(runner.getWorkingDirectory(), QString());
        QCOMPARE(runner.exitCode(), 0);
        QCOMPARE(runner.getRefCount(), 0);
    }

    void countsTheRunnersThatAreAlive()
    {
        const LineRunner first;
        QCOMPARE(LineRunner::getProcessCount(), 1);
        {
            LineRunner second;
            QCOMPARE(LineRunner::getProcessCount(), 2);
            setUp(second, words("exit 0"));
            QVERIFY(second.runAndWaitForFinish());
            QCOMPARE(LineRunner::getProcessCount(), 2);
        }
        QCOMPARE(LineRunner::getProcessCount(), 1);
    }

    void argumentsAreSetAddedAndCleared()
    {
        LineRunner runner;
        runner.addArgument(text("a"));
        runner.addArguments({text("b"), text("")});
        QCOMPARE(runner.getArguments(), QStringList({text("a"), text("b"), text("")}));
        runner.setArguments({text("c")});
        QCOMPARE(runner.getArguments(), QStringList(text("c")));
        runner.clearArguments();
        QVERIFY(runner.getArguments().isEmpty());
    }

    void executableIsMadeAbsoluteAsAFileAndKeptAsAText()
    {
        LineRunner runner;
        RecordingObserver observer(&runner);
        runner.setExecutable(QFileInfo(text("no such program")));
        QCOMPARE(runner.getExecutable().filePath(), QDir::currentPath() + text("/no such program"));
        runner.run();
        QCOMPARE(observer.lastExecutable, QDir::currentPath() + text("/no such program"));
        runner.setExecutable(text("no such program"));
        runner.run();
        QCOMPARE(observer.lastExecutable, text("no such program"));
    }

    void tellsTheLifeOfAChildInOrder()
    {
        LineRunner runner;
        RecordingObserver observer(&runner);
        QStringList order;
        observer.then = [&order](const QString& event) { order.append(event); };
        runner.onLine = [&order] { order.append(QStringLiteral("line")); };
        setUp(runner, words("out a\\n err b\\n exit 3"));
        QVERIFY(runWithEventLoop(runner));
        QCOMPARE(order, QStringList({text("started"), text("line"), text("line"),
                                     text("exit code 3"), text("done")}));
        QCOMPARE(observer.lastExecutable, text(KEST_TEST_CHILD));
        QCOMPARE(observer.lastArguments, words("out a\\n err b\\n exit 3"));
        QCOMPARE(runner.exitCode(), 3);
    }

    void observersAreCalledOneAfterTheOtherInTheOrderOfAttachment()
    {
        LineRunner runner;
        QStringList order;
        RecordingObserver first(&runner);
        RecordingObserver second(&runner);
        first.then = [&order](const QString& event) { order.append(text("1 ") + event); };
        second.then = [&order](const QString& event) { order.append(text("2 ") + event); };
        setUp(runner, words("exit 0"));
        QVERIFY(runWithEventLoop(runner));
        QCOMPARE(order, QStringList({text("1 started"), text("2 started"), text("1 exit code 0"),
                                     text("1 done"), text("2 exit code 0"), text("2 done")}));
    }

    void runAndWaitForFinishReturnsWhenAllIsTold()
    {
        LineRunner runner;
        const RecordingObserver observer(&runner);
        setUp(runner, words("lines 1000 55 exit 0"));
        QVERIFY(runner.runAndWaitForFinish());
        QVERIFY(!runner.isRunning());
        QCOMPARE(runner.output.size(), 1000);
        QCOMPARE(observer.lifeCycle(),
                 QStringList({text("started"), text("exit code 0"), text("done")}));
    }

    void normalExitNeedsExitCodeZero_data()
    {
        QTest::addColumn<QStringList>("commands");
        QTest::addColumn<bool>("normal");
        QTest::newRow("0") << words("exit 0") << true;
        QTest::newRow("2") << words("exit 2") << false;
        QTest::newRow("crash") << words("crash") << false;
    }

    void normalExitNeedsExitCodeZero()
    {
        QFETCH(QStringList, commands);
        QFETCH(bool, normal);
        LineRunner runner;
        setUp(runner, commands);
        QVERIFY(runner.runAndWaitForFinish());
        QCOMPARE(runner.normalExit(), normal);
    }

    void crashIsToldFromAnExitCode_data()
    {
        QTest::addColumn<QStringList>("commands");
        QTest::addColumn<bool>("crash");
        QTest::addColumn<int>("code");
        QTest::newRow("0") << words("exit 0") << false << 0;
        QTest::newRow("code 9") << words("exit 9") << false << 9;
        QTest::newRow("signal 9") << words("signal 9") << true << 9;
        QTest::newRow("signal 15") << words("signal 15") << true << 15;
    }

    void crashIsToldFromAnExitCode()
    {
        QFETCH(QStringList, commands);
        QFETCH(bool, crash);
        QFETCH(int, code);
        LineRunner runner;
        setUp(runner, commands);
        QVERIFY(!runner.crashExit());
        QVERIFY(runWithEventLoop(runner));
        QCOMPARE(runner.crashExit(), crash);
        QCOMPARE(runner.exitCode(), code);
    }

    void childThatReadsItsInputFindsItEmpty_data()
    {
        QTest::addColumn<bool>("waits");
        QTest::newRow("run") << false;
        QTest::newRow("runAndWaitForFinish") << true;
    }

    void childThatReadsItsInputFindsItEmpty()
    {
        QFETCH(bool, waits);
        LineRunner runner;
        setUp(runner, words("read-input read-input out end\\n"));
        ::alarm(60); // a call that waits for ever cannot fail otherwise
        QVERIFY(waits ? runner.runAndWaitForFinish() : runWithEventLoop(runner));
        ::alarm(0);
        QCOMPARE(runner.output,
                 QStringList({text("input: 0\n"), text("input: 0\n"), text("end\n")}));
        QVERIFY(runner.normalExit());
    }

    void nextRunFindsItsInputEmptyToo()
    {
        LineRunner runner;
        setUp(runner, words("read-input"));
        QVERIFY(runWithEventLoop(runner));
        QVERIFY(runWithEventLoop(runner));
        QCOMPARE(runner.output, QStringList({text("input: 0\n"), text("input: 0\n")}));
    }

    void startThatFails_data()
    {
        QTest::addColumn<QString>("executable");
        QTest::addColumn<QString>("directory");
        QTest::newRow("no such program") << "/no/such/program"
                                         << "";
        QTest::newRow("not in the path") << "no-such-program"
                                         << "";
        QTest::newRow("not executable") << QFINDTESTDATA("CMakeLists.txt") << "";
        QTest::newRow("a directory") << QDir::tempPath() << "";
        QTest::newRow("no program at all") << ""
                                           << "";
        QTest::newRow("no such working directory") << KEST_TEST_CHILD << "/no/such/directory";
    }

    void startThatFails()
    {
        QFETCH(QString, executable);
        QFETCH(QString, directory);
        LineRunner runner;
        const RecordingObserver observer(&runner);
        runner.setExecutable(executable);
        runner.setWorkingDirectory(directory);
        runner.addArgument(text("an argument"));
        QVERIFY(!runner.run());
        QCOMPARE(
            observer.events,
            QStringList({QStringLiteral("exit code %1").arg(runner.exitCode()), text("failed")}));
        QCOMPARE(observer.lastExecutable, executable);
        QCOMPARE(observer.lastArguments, QStringList(text("an argument")));
        QVERIFY(!observer.lastErrorString.isEmpty());
        QVERIFY(!runner.isRunning());
        QVERIFY(!runner.runAndWaitForFinish());

        runner.setWorkingDirectory(QString());
        setUp(runner, words("out again\\n"));
        QVERIFY(runWithEventLoop(runner));
        QCOMPARE(runner.output, QStringList(text("again\n")));
    }

    void failedStartTellsTheExitCodeThatTheProcessHolds()
    {
        LineRunner runner;
        const RecordingObserver observer(&runner);
        setUp(runner, words("exit 7"));
        QVERIFY(runner.runAndWaitForFinish());
        runner.setExecutable(text("/no/such/program"));
        QVERIFY(!runner.run());
        QCOMPARE(
            observer.events.mid(3),
            QStringList({QStringLiteral("exit code %1").arg(runner.exitCode()), text("failed")}));
    }

    void runWhileRunningIsRefusedAndHarmless()
    {
        QTemporaryDir folder;
        LineRunner runner;
        const RecordingObserver observer(&runner);
        setUp(runner,
              {text("wait-for-file"), folder.filePath(text("go")), text("out"), text("x\\n")});
        QVERIFY(runner.run());
        QVERIFY(runner.isRunning());
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(text("still running")));
        QVERIFY(!runner.run());
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(text("still running")));
        QVERIFY(!runner.runAndWaitForFinish());
        QCOMPARE(observer.events, QStringList(text("started")));
        QFile(folder.filePath(text("go"))).open(QIODevice::WriteOnly);
        QVERIFY(QTest::qWaitFor([&runner] { return !runner.isRunning(); }));
        QCOMPARE(runner.output, QStringList(text("x\n")));
        QCOMPARE(observer.lifeCycle(),
                 QStringList({text("started"), text("exit code 0"), text("done")}));
    }

    void stopProcessAsksToTerminate()
    {
        LineRunner runner;
        const RecordingObserver observer(&runner);
        setUp(runner, words("out up\\n sleep 60000"));
        QVERIFY(runner.run());
        QVERIFY(QTest::qWaitFor([&runner] { return !runner.output.isEmpty(); }));
        QVERIFY(!runner.isStopRequested());
        runner.stopProcess();
        QVERIFY(runner.isStopRequested());
        QVERIFY(QTest::qWaitFor([&runner] { return !runner.isRunning(); }));
        QVERIFY(!runner.normalExit());
        QVERIFY(runner.isStopRequested());
        QCOMPARE(observer.lifeCycle().count(text("done")), 1);
    }

    void requestToStopIsOfOneRunOnly()
    {
        LineRunner runner;
        runner.stopProcess();
        QVERIFY(!runner.isStopRequested());
        setUp(runner, words("sleep 60000"));
        QVERIFY(runner.run());
        runner.stopProcess();
        QVERIFY(QTest::qWaitFor([&runner] { return !runner.isRunning(); }));
        runner.stopProcess();
        QVERIFY(runner.isStopRequested());
        setUp(runner, words("exit 0"));
        QVERIFY(runWithEventLoop(runner));
        QVERIFY(!runner.isStopRequested());
    }

    void stopProcessNeitherWaitsNorKills()
    {
        QTemporaryDir folder;
        LineRunner runner;
        setUp(runner, {text("ignore-terminate"), text("out"), text("up\\n"), text("wait-for-file"),
                       folder.filePath(text("go")), text("out"), text("alive\\n")});
        QVERIFY(runner.run());
        QVERIFY(QTest::qWaitFor([&runner] { return !runner.output.isEmpty(); }));
        runner.stopProcess();
        QTest::qWait(100);
        QVERIFY(runner.isRunning());
        QFile(folder.filePath(text("go"))).open(QIODevice::WriteOnly);
        QVERIFY(QTest::qWaitFor([&runner] { return !runner.isRunning(); }));
        QCOMPARE(runner.output, QStringList({text("up\n"), text("alive\n")}));
        QVERIFY(runner.normalExit());
    }

    void stopProcessWithoutAChildDoesNothing()
    {
        LineRunner runner;
        const RecordingObserver observer(&runner);
        runner.stopProcess();
        QVERIFY(observer.events.isEmpty());
    }

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
        QTest::newRow("empty line")           << "\\n"              << QStringList{text("\n")};
        QTest::newRow("carriage return")      << "a\\r\\nb\\rc\\n"  << QStringList{text("a\r\n"), text("b\rc\n")};
        QTest::newRow("no line end")          << "abc"              << QStringList();
        QTest::newRow("tail without line end") << "a\\nbc"          << QStringList{text("a\n")};
        QTest::newRow("UTF-8")                << "\\xc3\\xa9\\n"    << QStringList{text("\xc3\xa9\n")};
        QTest::newRow("invalid UTF-8")        << "\\xffa\\n"        << QStringList{replacement + text("a\n")};
        QTest::newRow("zero")                 << "a\\0b\\nc\\n"     << QStringList{QString(QStringLiteral("a\0b\n")), text("c\n")};
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
        QByteArray escapes;
        for (int i = 0; i < 20000; ++i) {
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
        QTest::qWait(50);
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
                if (line.size() != 55 ||
                    line.leftRef(line.indexOf(QLatin1Char('.'))).toInt() != i) {
                    QFAIL(qPrintable(line));
                }
            }
        }
    }

    void secondRunStartsClean()
    {
        LineRunner runner;
        const RecordingObserver observer(&runner);
        setUp(runner, words("out left err over exit 4"));
        QVERIFY(runWithEventLoop(runner));
        setUp(runner, words("out a\\n err b\\n"));
        QVERIFY(runWithEventLoop(runner));
        QCOMPARE(runner.output, QStringList(text("a\n")));
        QCOMPARE(runner.errors, QStringList(text("b\n")));
        QCOMPARE(runner.exitCode(), 0);
        QCOMPARE(observer.lifeCycle().count(text("started")), 2);
        QCOMPARE(observer.lifeCycle().count(text("done")), 2);
    }

    void twoRunnersShareNothing()
    {
        LineRunner first;
        LineRunner second;
        setUp(first, words("out first\\n sleep 20 exit 1"));
        setUp(second, words("out second\\n sleep 20 exit 2"));
        QVERIFY(first.run());
        QVERIFY(second.run());
        QVERIFY(QTest::qWaitFor([&] { return !first.isRunning() && !second.isRunning(); }));
        QCOMPARE(first.output, QStringList(text("first\n")));
        QCOMPARE(second.output, QStringList(text("second\n")));
        QCOMPARE(first.exitCode(), 1);
        QCOMPARE(second.exitCode(), 2);
    }

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
        QCOMPARE(runner.output,
                 QStringList(QFileInfo(folder.path()).canonicalFilePath() + text("\n")));
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
    }

    void temporaryFileThatCannotBeDeletedDoesNotDisturbTheRun()
    {
        QTemporaryDir folder;
        const QString kept = text("/proc/self/status"); // nobody deletes this one
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
        QTest::qWait(20);
        QVERIFY(runner.isRunning());
        QVERIFY(QFile::exists(second));
        QVERIFY(QFile::exists(shared));
        QFile(folder.filePath(text("go"))).open(QIODevice::WriteOnly);
        QVERIFY(QTest::qWaitFor([&runner] { return !runner.isRunning(); }));
        QVERIFY(!QFile::exists(second));
        QVERIFY(!QFile::exists(shared));
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
            setUp(runner, {text("out"), text("a\\r\\n\\xc3\\xa9\\ntail"), text("sleep"), text("30"),
                           text("err"), text("b\\n")});
            QVERIFY(runWithEventLoop(runner));
            QVERIFY(runWithEventLoop(runner));
        }
        const QString log = logOf(folder.filePath(text("out.log")));
        const QStringList lines = log.split(QLatin1Char('\n'));
        QCOMPARE(lines.value(0), QString());
        QVERIFY2(isDateOfNow(lines.value(1)), qPrintable(lines.value(1)));
        QCOMPARE(log.mid(lines.value(1).size() + 2), text("a\r\n\xc3\xa9\nb\na\r\n\xc3\xa9\nb\n"));
    }

    void logIsUtf8InEveryLocale()
    {
        QTemporaryDir folder;
        qputenv(logVariable, folder.path().toLocal8Bit());
        QTextCodec* const ofTheLocale = QTextCodec::codecForLocale();
        QTextCodec::setCodecForLocale(QTextCodec::codecForName("ISO-8859-1"));
        {
            LineRunner runner;
            setUp(runner, {text("out"), text("\\xe2\\x82\\xac\\n")});
            QVERIFY(runWithEventLoop(runner));
        }
        QTextCodec::setCodecForLocale(ofTheLocale);
        QVERIFY(logOf(folder.filePath(text("out.log"))).endsWith(text("\xe2\x82\xac\n")));
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
        QCOMPARE(log.count(text("x\n")), 2);
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
        const QStringList lines =
            logOf(folder.filePath(text("model.log"))).split(QLatin1Char('\n'));
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

    void logOnAFullDiskDoesNotDisturbTheRun()
    {
        QTemporaryDir folder;
        QVERIFY(QFile::link(text("/dev/full"), folder.filePath(text("lines.log"))));
        qputenv(logVariable, folder.path().toLocal8Bit());
        LineRunner runner;
        setUp(runner, words("lines 20000 55"));
        QVERIFY(runWithEventLoop(runner));
        QCOMPARE(runner.output.size(), 20000);
    }

    void logOnADiskThatFillsUpDoesNotDisturbTheRun()
    {
        constexpr int room = 100000; // bytes, of a million
        QTemporaryDir folder;
        qputenv(logVariable, folder.path().toLocal8Bit());
        {
            LineRunner runner;
            const RecordingObserver observer(&runner);
            setUp(runner, words("lines 20000 55"));
            const FileSizeLimit limit(room);
            QVERIFY(runWithEventLoop(runner));
            QCOMPARE(runner.output.size(), 20000);
            QCOMPARE(observer.lifeCycle(),
                     QStringList({text("started"), text("exit code 0"), text("done")}));
        }
        QCOMPARE(QFileInfo(folder.filePath(text("lines.log"))).size(), qint64(room));
    }

    void runnerReleasedInACallbackIsSafe_data()
    {
        QTest::addColumn<QString>("event");
        QTest::newRow("started") << "started";
        QTest::newRow("failed") << "failed";
        QTest::newRow("message") << "message";
        QTest::newRow("exit code") << "exit code 0";
        QTest::newRow("done") << "done";
    }

    void runnerReleasedInACallbackIsSafe()
    {
        QFETCH(QString, event);
        QTemporaryDir folder;
        common_ActivePtr<LineRunner> runner(new LineRunner);
        RecordingObserver observer(runner.get());
        int lines = 0;
        runner->onLine = [&] {
            ++lines;
            if (event == text("message")) {
                runner.reset();
            }
        };
        observer.then = [&](const QString& told) {
            if (told == event) {
                runner.reset();
            }
        };
        if (event == text("failed")) {
            runner->setExecutable(text("/no/such/program"));
        } else {
            setUp(*runner, words("out a\\nb\\n exit 0"));
        }
        runner->run();
        QVERIFY(QTest::qWaitFor([&] { return runner.isNull(); }));
        QVERIFY(QTest::qWaitFor([] { return childProcesses() == 0; }));
        QCOMPARE(LineRunner::getProcessCount(), 0);
        QCOMPARE(lines, event == text("message")                                ? 1
                        : event == text("done") || event == text("exit code 0") ? 2
                                                                                : 0);
    }

    // Its signal may still be on the way to other receivers. QProcess itself tells when it goes.
    void processOfARunnerReleasedInACallbackIsLeftToTheEventLoop()
    {
        static int gone = 0;
        gone = 0;
        const QtMessageHandler before =
            qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString& told) {
                gone += told.contains(text("Destroyed while process")) ? 1 : 0;
            });
        common_ActivePtr<LineRunner> runner(new LineRunner);
        int goneInTheCallback = -1;
        runner->onLine = [&] {
            QMetaObject::invokeMethod(
                this, [&goneInTheCallback] { goneInTheCallback = gone; }, Qt::QueuedConnection);
            runner.reset();
        };
        setUp(*runner, words("ignore-terminate out a\\n sleep 60000"));
        const bool started = runner->run();
        QEventLoop loop; // QTest::qWaitFor() would see to deletions before anything else
        QTimer poll;
        connect(&poll, &QTimer::timeout, &loop, [&loop] {
            if (gone > 0) {
                loop.quit();
            }
        });
        poll.start(1);
        QTimer::singleShot(10000, &loop, &QEventLoop::quit);
        loop.exec();
        qInstallMessageHandler(before);
        QVERIFY(started);
        QCOMPARE(gone, 1);
        QCOMPARE(goneInTheCallback, 0);
        QCOMPARE(childProcesses(), 0);
    }

    void runnerReleasedWhileItsOwnerWaitsIsSafe()
    {
        common_ActivePtr<LineRunner> runner(new LineRunner);
        runner->onLine = [&runner] { runner.reset(); };
        setUp(*runner, words("out a\\nb\\n exit 0"));
        QVERIFY(runner->runAndWaitForFinish());
        QVERIFY(runner.isNull());
        QCOMPARE(LineRunner::getProcessCount(), 0);
        QTest::qWait(0);
    }

    void temporaryFilesGoWhenTheRunnerIsReleasedInTheLastCallback()
    {
        QTemporaryDir folder;
        const QString file = folder.filePath(text("machines"));
        common_ActivePtr<LineRunner> runner(new LineRunner);
        RecordingObserver observer(runner.get());
        observer.then = [&](const QString& told) {
            if (told == text("done")) {
                runner.reset();
            }
        };
        setUp(*runner, {text("touch"), file});
        runner->setTemporaryFilenames({file});
        QVERIFY(runner->run());
        QVERIFY(QTest::qWaitFor([&] { return runner.isNull(); }));
        QVERIFY(!QFile::exists(file));
    }

    void observerMayStopObservingInEveryCallback_data()
    {
        QTest::addColumn<QString>("event");
        QTest::newRow("started") << "started";
        QTest::newRow("exit code") << "exit code 0";
        QTest::newRow("done") << "done";
    }

    void observerMayStopObservingInEveryCallback()
    {
        QFETCH(QString, event);
        LineRunner runner;
        RecordingObserver first(&runner);
        const RecordingObserver second(&runner);
        first.then = [&](const QString& told) {
            if (told == event) {
                first.stopObserving();
            }
        };
        setUp(runner, words("exit 0"));
        QVERIFY(runWithEventLoop(runner));
        QCOMPARE(second.events.size(), 3);
        const QStringList told = {text("started"), text("exit code 0"), text("done")};
        // The end is told to an observer in two calls, whatever it does in the first.
        QCOMPARE(first.events, event == text("started") ? QStringList(told.mid(0, 1)) : told);
    }

    void observerMayDestroyItselfAtTheEnd()
    {
        LineRunner runner;
        auto observer = std::make_unique<RecordingObserver>(&runner);
        const RecordingObserver second(&runner);
        observer->then = [&observer](const QString& event) {
            if (event == text("done")) {
                observer.reset();
            }
        };
        setUp(runner, words("exit 0"));
        QVERIFY(runWithEventLoop(runner));
        QCOMPARE(second.events.last(), text("done"));
    }

    void nextRunMayBeStartedInTheLastCallback()
    {
        LineRunner runner;
        RecordingObserver first(&runner);
        const RecordingObserver second(&runner);
        bool wasRunning = true;
        first.then = [&](const QString& event) {
            if (event == text("done")) {
                wasRunning = runner.isRunning();
                first.then = [](const QString&) {};
                runner.setArguments(words("out again\\n exit 5"));
                QVERIFY(runner.run());
            }
        };
        setUp(runner, words("out once\\n exit 6"));
        QVERIFY(runner.run());
        QVERIFY(QTest::qWaitFor([&first] { return first.lifeCycle().size() == 6; }));
        QVERIFY(!wasRunning);
        QCOMPARE(runner.output, QStringList({text("once\n"), text("again\n")}));
        // The second observer hears of the next start before it hears of the first end, and the
        // exit code that it hears then is still the first.
        QCOMPARE(second.lifeCycle(),
                 QStringList({text("started"), text("started"), text("exit code 6"), text("done"),
                              text("exit code 5"), text("done")}));
    }

    void eventLoopInACallbackLosesNothing()
    {
        LineRunner runner;
        const RecordingObserver observer(&runner);
        int depth = 0;
        runner.onLine = [&] {
            if (depth == 0 && runner.output.size() % 500 == 1) {
                ++depth;
                QTest::qWait(5);
                --depth;
            }
        };
        setUp(runner, words("lines 3000 55 sleep 20 lines 3000 55"));
        QVERIFY(runner.run());
        QVERIFY(QTest::qWaitFor([&observer] { return observer.events.contains(text("done")); }));
        QCOMPARE(runner.output.size(), 6000);
        for (int i = 0; i < 6000; ++i) {
            QVERIFY(runner.output[i].startsWith(QString::number(i % 3000) + QLatin1Char('.')));
        }
    }

    void destructionEndsTheChildAndTellsNobody()
    {
        auto runner = std::make_unique<LineRunner>();
        const RecordingObserver observer(runner.get());
        setUp(*runner, words("sleep 60000"));
        QVERIFY(runner->run());
        QElapsedTimer timer;
        timer.start();
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(text("Destroyed while process")));
        runner.reset();
        QVERIFY(timer.elapsed() < 10000);
        QCOMPARE(childProcesses(), 0);
        QCOMPARE(observer.events, QStringList(text("started")));
    }

    void destructionAsksTheChildToTerminate()
    {
        common_ActivePtr<LineRunner> runner(new LineRunner);
        RecordingObserver observer(runner.get());
        observer.then = [&runner](const QString&) { runner.reset(); };
        setUp(*runner, words("sleep 60000"));
        QVERIFY(runner->run());
        QVERIFY(runner.isNull());
        // Without an event loop nothing else ends it.
        QElapsedTimer timer;
        timer.start();
        while (childProcesses(false) > 0 && timer.elapsed() < 5000) {
            QThread::msleep(1);
        }
        QCOMPARE(childProcesses(false), 0);
        QVERIFY(QTest::qWaitFor([] { return childProcesses() == 0; }));
    }

    void grandchildOutlivesTheChildAndIsNotHeard()
    {
        LineRunner runner;
        const RecordingObserver observer(&runner);
        setUp(runner, words("leave-grandchild late\\n 200 out a\\n exit 0"));
        QVERIFY(runWithEventLoop(runner));
        QCOMPARE(observer.lifeCycle().constLast(), text("done"));
        QTest::qWait(300);
        QCOMPARE(runner.output, QStringList(text("a\n")));
    }

    void hidingTheConsoleIsHarmless()
    {
        LineRunner runner;
        runner.hideConsole();
        setUp(runner, words("out a\\n"));
        QVERIFY(runWithEventLoop(runner));
        QCOMPARE(runner.output.size(), 1);
    }

    void manyRunsLeaveNoDescriptorAndNoZombie()
    {
        const auto runOnce = [] {
            LineRunner runner;
            setUp(runner, words("out x\\n exit 0"));
            QVERIFY(runWithEventLoop(runner));
            QCOMPARE(runner.output.size(), 1);
        };
        runOnce(); // what Qt opens once and for all
        const int before = openDescriptors();
        for (int i = 0; i < 200; ++i) {
            runOnce();
        }
        std::vector<std::unique_ptr<LineRunner>> runners;
        for (int i = 0; i < 50; ++i) {
            runners.push_back(std::make_unique<LineRunner>());
            setUp(*runners.back(),
                  {text("out"), QString::number(i) + text("\\n"), text("sleep"), text("100")});
            QVERIFY(runners.back()->run());
        }
        for (int i = 0; i < 50; ++i) {
            QVERIFY(QTest::qWaitFor([&] { return !runners[std::size_t(i)]->isRunning(); }, 20000));
            QCOMPARE(runners[std::size_t(i)]->output, QStringList(QString::number(i) + text("\n")));
        }
        runners.clear();
        QCOMPARE(openDescriptors(), before);
        QCOMPARE(childProcesses(), 0);
    }
};

QTEST_GUILESS_MAIN(tst_common_ProcessRunnerBase)
#include "tst_common_ProcessRunnerBase.moc"
