// SPDX-License-Identifier: MIT
#include <ChildProcess.h>
#include <RunningProcesses.h>

#include <QDir>
#include <QTemporaryDir>
#include <QtTest>

#include <csignal>
#include <cstring>
#include <memory>

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr int patience = 30000; // ms, of a loaded machine

const QString shell = QStringLiteral("/bin/sh");

QStringList script(const char* text)
{
    return {QStringLiteral("-c"), QString::fromUtf8(text)};
}

// Also when it has ended and its parent has not noticed.
bool hasEnded(qint64 process)
{
    return RunningProcesses::startTime(process) == 0;
}

int openDescriptors()
{
    const QDir folder(QStringLiteral("/proc/self/fd"));
    return folder.entryList(QDir::NoDotAndDotDot | QDir::System).size();
}

/// A process and what it has told.
struct Child
{
    Child()
    {
        QObject::connect(&process, &ChildProcess::outputRead, &process,
                         [this](const QByteArray& bytes) { output += bytes; });
        QObject::connect(&process, &ChildProcess::errorsRead, &process,
                         [this](const QByteArray& bytes) { errors += bytes; });
    }

    bool run(const char* text) { return process.start(shell, script(text)) && waitForEnd(); }

    bool waitForEnd()
    {
        return QTest::qWaitFor([this] { return !ended.isEmpty(); }, patience);
    }

    /// The numbers that it prints, a line each.
    QVector<qint64> numbers(int count)
    {
        const bool areThere =
            QTest::qWaitFor([this, count] { return output.count('\n') >= count; }, patience);
        QVector<qint64> result;
        for (int i = 0; areThere && i < count; ++i) {
            result.append(output.split('\n').at(i).toLongLong());
        }
        return result;
    }

    ChildProcess process;
    QByteArray output;
    QByteArray errors;
    QSignalSpy ended = QSignalSpy(&process, &ChildProcess::ended);
};

} // namespace

// A program in a group of its own: its channels, its end, and that nothing of it stays.
class tst_ChildProcess : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void outputErrorsAndExitCodeAreReported()
    {
        Child child;
        QVERIFY(child.run("echo out; echo err >&2; printf tail; exit 3"));
        QCOMPARE(child.output, QByteArray("out\ntail"));
        QCOMPARE(child.errors, QByteArray("err\n"));
        QVERIFY(child.process.hasExited());
        QCOMPARE(child.process.exitCode(), 3);
        QVERIFY(child.process.startError().isEmpty());
        QVERIFY(!child.process.isRunning());
        QTest::qWait(50);
        QCOMPARE(child.ended.size(), 1);
    }

    void errorsMayGoWithTheOutput()
    {
        Child child;
        child.process.setErrors(ChildProcess::Errors::WithOutput);
        QVERIFY(child.run("echo a; echo b >&2; echo c"));
        QCOMPARE(child.output, QByteArray("a\nb\nc\n"));
        QCOMPARE(child.errors, QByteArray());
    }

    void errorsMayGoWhereThisProgramsOwnGo()
    {
        QTemporaryFile file;
        QVERIFY(file.open());
        const int own = ::dup(STDERR_FILENO);
        ::dup2(file.handle(), STDERR_FILENO);
        Child child;
        child.process.setErrors(ChildProcess::Errors::Inherited);
        const bool isRun = child.run("echo err >&2; echo out");
        ::dup2(own, STDERR_FILENO);
        ::close(own);
        QVERIFY(isRun);
        QCOMPARE(child.output, QByteArray("out\n"));
        file.seek(0); // the child has written from the same position on
        QCOMPARE(file.readAll(), QByteArray("err\n"));
    }

    void endBySignalIsNoExit()
    {
        Child child;
        QVERIFY(child.run("kill -9 $$"));
        QVERIFY(!child.process.hasExited());
        QCOMPARE(child.process.exitCode(), SIGKILL);
    }

    void inputIsAtItsEndFromTheStart()
    {
        Child child;
        QVERIFY(child.run("cat; echo done"));
        QCOMPARE(child.output, QByteArray("done\n"));
    }

    void whatIsWrittenArrives()
    {
        QByteArray bytes;
        for (int i = 0; bytes.size() < (3 << 20); ++i) {
            bytes += QByteArray::number(i) + '\n';
        }
        Child child;
        child.process.setInput(ChildProcess::Input::Written);
        QVERIFY(child.process.start(QStringLiteral("cat"), {}));
        child.process.write(bytes.left(10));
        child.process.write(bytes.mid(10));
        child.process.closeInput();
        child.process.write("too late");
        QVERIFY(child.waitForEnd());
        QCOMPARE(child.output.size(), bytes.size());
        QVERIFY(child.output == bytes);
    }

    void inputThatNobodyReadsIsDropped()
    {
        Child child;
        child.process.setInput(ChildProcess::Input::Written);
        QVERIFY(child.process.start(shell, script("exec 0<&-; echo up; sleep 0.2; exit 5")));
        QTRY_COMPARE_WITH_TIMEOUT(child.output, QByteArray("up\n"), patience);
        child.process.write(QByteArray(1 << 20, 'x'));
        QVERIFY(child.waitForEnd());
        child.process.write("more");
        QTest::qWait(10);
        QCOMPARE(child.process.exitCode(), 5);
    }

    void manyLinesArriveInOrder()
    {
        Child child;
        QVERIFY(child.run("i=0; while [ $i -lt 20000 ]; do echo $i; i=$((i+1)); done"));
        const QList<QByteArray> lines = child.output.split('\n');
        QCOMPARE(lines.size(), 20001);
        for (int i = 0; i < 20000; ++i) {
            QCOMPARE(lines.at(i).toInt(), i);
        }
    }

    // What it has started may keep the channels, and fill them.
    void endIsReportedWhileOthersStillPrint()
    {
        Child child;
        QVERIFY(child.run("while :; do echo x; done & exit 4"));
        QCOMPARE(child.process.exitCode(), 4);
        const int size = child.output.size();
        QTest::qWait(50);
        QCOMPARE(child.output.size(), size);
        child.process.killGroup();
        QTRY_VERIFY_WITH_TIMEOUT(!child.process.isGroupAlive(), patience);
    }

    void failedStartIsReported_data()
    {
        QTest::addColumn<QString>("program");
        QTest::addColumn<QString>("folder");
        QTest::addColumn<int>("error");
        QTest::newRow("missing") << "/no such program"
                                 << "" << ENOENT;
        QTest::newRow("missing in PATH") << "no-such-program-at-all"
                                         << "" << ENOENT;
        QTest::newRow("no name") << ""
                                 << "" << ENOENT;
        QTest::newRow("not executable") << "/etc/passwd"
                                        << "" << EACCES;
        QTest::newRow("a folder") << "/tmp"
                                  << "" << EACCES;
        QTest::newRow("missing working folder") << "/bin/sh"
                                                << "/no such folder" << ENOENT;
    }

    void failedStartIsReported()
    {
        QFETCH(QString, program);
        QFETCH(QString, folder);
        QFETCH(int, error);
        Child child;
        child.process.setWorkingDirectory(folder);
        QVERIFY(!child.process.start(program, {}));
        QCOMPARE(child.process.startError(), QString::fromLocal8Bit(std::strerror(error)));
        QVERIFY(!child.process.isRunning());
        QVERIFY(!child.process.isGroupAlive());
        QCOMPARE(child.ended.size(), 0);
        QVERIFY(child.waitForEnd());
        QVERIFY(!child.process.hasExited());
        child.process.write("nothing");
        child.process.closeInput();
        child.process.killGroup();
        QCOMPARE(::waitpid(-1, nullptr, WNOHANG), -1); // no child is left to be asked
    }

    void programStartsInItsFolderWithItsArguments()
    {
        const QTemporaryDir folder;
        Child child;
        child.process.setWorkingDirectory(folder.path());
        const QStringList words = {QString(), QStringLiteral("a b"), QStringLiteral("'\"\n"),
                                   QString::fromUtf8("\u00e4")};
        QVERIFY(child.process.start(QStringLiteral("sh"), script("pwd; printf '[%s]' \"$@\"") +
                                                              QStringList(QStringLiteral("0")) +
                                                              words));
        QVERIFY(child.waitForEnd());
        QCOMPARE(QString::fromUtf8(child.output),
                 QDir(folder.path()).canonicalPath() +
                     QStringLiteral("\n[%1]").arg(words.join(QStringLiteral("]["))));
        QCOMPARE(child.process.program(), QStringLiteral("sh"));
    }

    // The number of the process, its group and its session.
    void groupIsItsOwn_data()
    {
        QTest::addColumn<bool>("hasTerminal");
        QTest::newRow("with the terminal") << true;
        QTest::newRow("without") << false;
    }

    void groupIsItsOwn()
    {
        QFETCH(bool, hasTerminal);
        Child child;
        child.process.setTerminal(hasTerminal ? ChildProcess::Terminal::Inherited
                                              : ChildProcess::Terminal::None);
        QVERIFY(child.run("cut -d' ' -f1,5,6 /proc/$$/stat"));
        const QList<QByteArray> numbers = child.output.trimmed().split(' ');
        QCOMPARE(numbers.size(), 3);
        QCOMPARE(numbers[1], numbers[0]);
        QCOMPARE(numbers[2] == numbers[0], !hasTerminal);
        QCOMPARE(numbers[2].toInt() == ::getsid(0), hasTerminal);
    }

    void signalsHaveTheirUsualEffect()
    {
        const auto before = std::signal(SIGPIPE, SIG_IGN);
        const auto beforeSize = std::signal(SIGXFSZ, SIG_IGN);
        Child child;
        const bool isRun =
            child.process.start(QStringLiteral("grep"),
                                {QStringLiteral("SigIgn"), QStringLiteral("/proc/self/status")});
        std::signal(SIGPIPE, before);
        std::signal(SIGXFSZ, beforeSize);
        QVERIFY(isRun && child.waitForEnd());
        bool isNumber = false;
        const qulonglong ignored = child.output.mid(7).trimmed().toULongLong(&isNumber, 16);
        QVERIFY(isNumber);
        QCOMPARE(ignored & (1ull << (SIGPIPE - 1) | 1ull << (SIGXFSZ - 1)), 0ull);
    }

    void niceValueIsGiven()
    {
        Child child;
        child.process.setNiceValue(19);
        QVERIFY(child.run("nice"));
        QCOMPARE(child.output, QByteArray("19\n"));
    }

    void endIsKnownWhereThisProgramIgnoresChildren()
    {
        const auto before = std::signal(SIGCHLD, SIG_IGN);
        Child child;
        const bool isRun = child.run("exit 6");
        std::signal(SIGCHLD, before);
        QVERIFY(isRun);
        QCOMPARE(child.process.exitCode(), 6);
    }

    void groupIsKilledWithAllThatItHasStarted()
    {
        Child child;
        QVERIFY(child.process.start(
            shell, script("sleep 1000 & echo $!; (trap '' TERM; sleep 1000 & echo $!; wait) & "
                          "echo $!; wait")));
        const QVector<qint64> others = child.numbers(3);
        QCOMPARE(others.size(), 3);
        QVERIFY(child.process.isGroupAlive());
        child.process.killGroup();
        QVERIFY(child.waitForEnd());
        QCOMPARE(child.process.exitCode(), SIGKILL);
        for (const qint64 other : others) {
            QTRY_VERIFY_WITH_TIMEOUT(hasEnded(other), patience);
        }
        QTRY_VERIFY_WITH_TIMEOUT(!child.process.isGroupAlive(), patience);
    }

    void groupIsAskedToEnd()
    {
        Child child;
        QVERIFY(child.process.start(shell, script("sleep 1000 & echo $!; exec sleep 1000")));
        const QVector<qint64> others = child.numbers(1);
        QCOMPARE(others.size(), 1);
        child.process.terminateGroup();
        QVERIFY(child.waitForEnd());
        QCOMPARE(child.process.exitCode(), SIGTERM);
        QTRY_VERIFY_WITH_TIMEOUT(hasEnded(others.first()), patience);
    }

    void groupOutlivesItsFirstProcess()
    {
        Child child;
        QVERIFY(child.run("sleep 1000 >/dev/null 2>&1 & exit 0"));
        QVERIFY(!child.process.isRunning());
        QVERIFY(child.process.isGroupAlive());
        child.process.killGroup();
        QTRY_VERIFY_WITH_TIMEOUT(!child.process.isGroupAlive(), patience);
    }

    void groupEndsWithTheObject()
    {
        auto child = std::make_unique<Child>();
        QVERIFY(child->process.start(shell, script("echo $$; sleep 1000 & echo $!; wait")));
        const QVector<qint64> processes = child->numbers(2);
        QCOMPARE(processes.size(), 2);
        child.reset();
        QVERIFY(::kill(pid_t(processes[0]), 0) != 0);
        QTRY_VERIFY_WITH_TIMEOUT(hasEnded(processes[1]), patience);
    }

    void objectMayBeDeletedLaterInItsOwnSlot()
    {
        auto* const process = new ChildProcess;
        QPointer<ChildProcess> pointer(process);
        connect(process, &ChildProcess::ended, process, &QObject::deleteLater);
        QVERIFY(process->start(shell, script("exit 0")));
        QTRY_VERIFY_WITH_TIMEOUT(!pointer, patience);
    }

    void nothingIsLeftOfManyRuns()
    {
        { // what is opened once
            Child child;
            QVERIFY(child.run("exit 0"));
        }
        const int before = openDescriptors();
        for (int i = 0; i < 50; ++i) {
            Child child;
            child.process.setInput(ChildProcess::Input::Written);
            QVERIFY(child.run("echo x; echo y >&2; exit 1"));
            QVERIFY(!Child().process.start(QStringLiteral("/no such program"), {}));
        }
        QCOMPARE(openDescriptors(), before);
        QCOMPARE(::waitpid(-1, nullptr, WNOHANG), -1);
    }

    void programsGetTheirOwnChannelsOnly()
    {
        Child alone;
        QVERIFY(alone.run("ls /proc/$$/fd"));
        Child other;
        other.process.setInput(ChildProcess::Input::Written);
        QVERIFY(other.process.start(QStringLiteral("cat"), {}));
        Child child;
        child.process.setInput(ChildProcess::Input::Written);
        QVERIFY(child.run("ls /proc/$$/fd"));
        QCOMPARE(child.output, alone.output);
    }
};

QTEST_GUILESS_MAIN(tst_ChildProcess)

#include "tst_ChildProcess.moc"
