// SPDX-License-Identifier: MIT
#include "TestRun.h"

#include <QProcess>
#include <QProcessEnvironment>
#include <QTemporaryDir>

#include <algorithm>

namespace {

constexpr int skipped = 77; // exit code of what cannot run on this machine

/// One process of a test program.
struct Attempt
{
    TestLog log;
    QString end; ///< how it ended before its time; empty when it came to its end
    int exitCode = 0;
    QString output;
};

QProcessEnvironment environmentOf(bool isFull)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    if (isFull) {
        environment.insert(QStringLiteral("KEST_FULL_TESTS"), QStringLiteral("1"));
    } else {
        environment.remove(QStringLiteral("KEST_FULL_TESTS"));
    }
    return environment;
}

/// Waits for the end; says how it was brought about when it does not come by itself.
QString waitForEnd(QProcess& process, int seconds)
{
    constexpr int patience = 20000; // milliseconds, for the sandbox to be cleared
    if (!process.waitForStarted()) {
        return QStringLiteral("could not be started: ") + process.errorString();
    }
    if (!process.waitForFinished(seconds * 1000)) {
        process.terminate();
        if (!process.waitForFinished(patience)) {
            process.kill();
            process.waitForFinished();
        }
        return QStringLiteral("did not end within %1 seconds").arg(seconds);
    }
    // The sandbox ends with 128 and the number of the signal that ended the program.
    constexpr int firstSignal = 129;
    constexpr int lastSignal = 192;
    const int code = process.exitCode();
    if (process.exitStatus() == QProcess::CrashExit ||
        (code >= firstSignal && code <= lastSignal)) {
        return QStringLiteral("crashed (exit code %1)").arg(code);
    }
    return {};
}

Attempt attempt(const TestProgram& program, const QStringList& words, bool isFull)
{
    const QTemporaryDir folder;
    const QString log = folder.filePath(QStringLiteral("log.xml"));
    QProcess process;
    process.setWorkingDirectory(program.folder);
    process.setProcessEnvironment(environmentOf(isFull));
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(program.command.constFirst(),
                  program.command.mid(1) +
                      QStringList{QStringLiteral("-o"), log + QStringLiteral(",xml")} + words);
    Attempt result;
    result.end = waitForEnd(process, program.timeLimit);
    result.exitCode = process.exitCode();
    result.output = QString::fromUtf8(process.readAll()).trimmed();
    result.log = TestLog::read(log);
    return result;
}

bool has(const QVector<TestCase>& cases, const QString& word)
{
    return std::any_of(cases.cbegin(), cases.cend(), [&word](const TestCase& each) {
        return each.function == word.section(QLatin1Char(':'), 0, 0) &&
               (!word.contains(QLatin1Char(':')) || each.row == word.section(QLatin1Char(':'), 1));
    });
}

TestCase caseOf(const QString& word, TestCase::Outcome outcome, const QString& message)
{
    return {word.section(QLatin1Char(':'), 0, 0), word.section(QLatin1Char(':'), 1), outcome,
            message};
}

/// The words, each once, without rows of functions that are run anyway.
QStringList wordsOf(const QVector<FaultTest>& tests)
{
    QStringList words;
    for (const FaultTest& test : tests) {
        const bool isCovered =
            std::any_of(tests.cbegin(), tests.cend(), [&test](const FaultTest& other) {
                return other.row.isEmpty() && other.function == test.function;
            });
        const QString word = isCovered ? test.function : test.word();
        if (!words.contains(word)) {
            words.append(word);
        }
    }
    return words;
}

/// Of a process that ended before its time, the words that it did not get to. One is lost: that of
/// the function in which it ended, or else the next.
QStringList wordsBehindTheEnd(const QStringList& words, const Attempt& ended, TestRun& run)
{
    int lost = 0;
    for (int i = 0; i < words.size(); ++i) {
        const QString function = words.at(i).section(QLatin1Char(':'), 0, 0);
        if (function == ended.log.endedIn) {
            lost = i;
            break;
        }
        if (has(ended.log.cases, words.at(i))) {
            lost = qMin(i + 1, words.size() - 1);
        }
    }
    QString message = QStringLiteral("the test program ") + ended.end;
    if (!ended.log.lastWords.isEmpty()) {
        message += QStringLiteral(": ") + ended.log.lastWords;
    }
    run.cases.append(caseOf(words.at(lost), TestCase::Outcome::Lost, message));
    return words.mid(lost + 1);
}

/// A process that came to its end: what it did not try, and what it does not say of its functions.
void addMissing(const QStringList& words, const Attempt& ended, TestRun& run)
{
    const bool isSkipped = ended.exitCode == skipped && ended.log.cases.isEmpty();
    const QString last = ended.output.section(QLatin1Char('\n'), -1);
    for (const QString& word : words) {
        if (isSkipped) {
            run.cases.append(caseOf(word, TestCase::Outcome::Skipped, last));
        } else if (!has(ended.log.cases, word)) {
            run.cases.append(
                caseOf(word, TestCase::Outcome::Lost, QStringLiteral("was not run: ") + last));
        }
    }
    const bool isAllWell =
        std::none_of(run.cases.cbegin(), run.cases.cend(),
                     [](const TestCase& each) { return each.outcome == TestCase::Outcome::Lost; });
    if (ended.exitCode != 0 && isAllWell && !isSkipped) {
        run.failure = QStringLiteral("the test program ended with exit code %1: %2")
                          .arg(ended.exitCode)
                          .arg(ended.output.right(1000));
    }
}

} // namespace

QVector<TestCase> TestRun::casesOf(const FaultTest& test) const
{
    QVector<TestCase> found;
    std::copy_if(
        cases.cbegin(), cases.cend(), std::back_inserter(found), [&test](const TestCase& each) {
            return each.function == test.function && (test.row.isEmpty() || each.row == test.row);
        });
    return found;
}

TestRun runTests(const TestProgram& program, const QVector<FaultTest>& tests, bool isFull)
{
    TestRun run;
    QStringList words = wordsOf(tests);
    while (!words.isEmpty()) {
        const Attempt ended = attempt(program, words, isFull);
        run.cases += ended.log.cases;
        if (ended.end.isEmpty()) {
            addMissing(words, ended, run);
            break;
        }
        words = wordsBehindTheEnd(words, ended, run);
    }
    return run;
}
