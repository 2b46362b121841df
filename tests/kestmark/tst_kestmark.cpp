// SPDX-License-Identifier: MIT
#include "../support/SystemSkips.h"
#include "../support/UnixLines.h"

#include <RecordingObserver.h>
#include <TestRandom.h>
#include <Text.h>

#include <common_ActivePtr.h>
#include <common_KestProcessMessage.h>
#include <common_ProcessRunner.h>

#include <QEventLoop>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

namespace {

using Runner = common_ProcessRunner<common_KestProcessMessage>;

struct Result
{
    int exitCode = -1;
    QByteArray output;
    QString errors;
};

Result finished(QProcess& process)
{
    Result result;
    if (process.waitForFinished(50000) && process.exitStatus() == QProcess::NormalExit) {
        result.exitCode = process.exitCode();
    }
    result.output = unixLines(process.readAllStandardOutput());
    result.errors = QString::fromUtf8(unixLines(process.readAllStandardError()));
    return result;
}

Result shell(const QString& command, const QString& folder = QString())
{
    QProcess process;
    process.setWorkingDirectory(folder);
    process.start(text("/bin/sh"), {text("-c"), command, text(KESTMARK)});
    return finished(process);
}

Result run(const QStringList& arguments, const QByteArray& input = {})
{
    QProcess process;
    process.start(text(KESTMARK), arguments);
    process.write(input);
    process.closeWriteChannel();
    return finished(process);
}

// The texts of all messages by their types, from the object that --json prints.
QMap<QString, QStringList> messages(const QByteArray& json)
{
    QMap<QString, QStringList> result;
    const QJsonArray lines = QJsonDocument::fromJson(json).object()[text("lines")].toArray();
    for (const QJsonValue& line : lines) {
        const QJsonArray found = line.toObject()[text("messages")].toArray();
        for (const QJsonValue& message : found) {
            const QJsonObject object = message.toObject();
            result[object[text("type")].toString()].append(object[text("text")].toString());
        }
    }
    return result;
}

QByteArray randomOutput(QRandomGenerator& random)
{
    const QByteArrayList parts = {"-*-error-*-",
                                  "-*-warning-*-",
                                  "-*-percentage-*-",
                                  "-*-",
                                  "45%",
                                  "\n",
                                  "\n",
                                  "\r\n",
                                  "caf\xc3\xa9 ",
                                  "\xff",
                                  QByteArray("\0", 1),
                                  "WARNING 1: ",
                                  "state machine failed.",
                                  QByteArray(700, 'x'),
                                  "-*-file-*- a "};
    QByteArray output;
    for (int count = 300; count > 0; --count) {
        output += parts[random.bounded(parts.size())];
    }
    return output;
}

} // namespace

// The program that explains what a solver prints.
class tst_kestmark : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_folder;

    QString write(const QByteArray& content) const
    {
        QString path = m_folder.filePath(text("out.log"));
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size()) {
            qFatal("cannot write the output");
        }
        return path;
    }

    /// The messages that applications get when a component prints the content of the file.
    static QStringList messagesOfRunner(const QString& path, common_IProcessMessage::Type type)
    {
        const common_ActivePtr<Runner> runner(new Runner);
        RecordingObserver observer(runner.get());
        QEventLoop loop;
        observer.then = [&loop](const QString& event) {
            if (event == QLatin1String("done")) {
                loop.quit();
            }
        };
        runner->setExecutable(text("/bin/cat"));
        runner->setArguments({path});
        if (runner->run()) {
            loop.exec();
        }
        return observer.texts[type];
    }

private Q_SLOTS:
    void explainsEachLine()
    {
        const Result result = run({text("check")}, "Solving\n"
                                                   "-*-warning-*-WARNING 12: too fine\n"
                                                   "\n"
                                                   "-*-Error-*- x\n"
                                                   "-*-total-percentage-*-100%\n");
        QCOMPARE(
            QString::fromUtf8(result.output),
            text("     1  output            \"Solving\"\n"
                 "     2  warning           \"WARNING 12: too fine\", listed as 12 | too fine\n"
                 "     3  nothing\n"
                 "     4  output            \"-*-Error-*- x\"\n"
                 "        ! near-miss: \"-*-Error-*-\" is no marker and is shown as text; "
                 "write -*-error-*-\n"
                 "     5  total percentage  100 %\n"
                 "5 lines: 2 output, 1 total percentage, 1 warning\n"
                 "1 remark\n"));
        QCOMPARE(result.errors, QString());
        QCOMPARE(result.exitCode, 1);
    }

    void showsOnlyRemarksOnRequest()
    {
        const Result result =
            run({text("check"), text("--remarks")}, "a\n-*-foo-*-b\n-*-total-percentage-*-100%\n");
        QVERIFY2(
            result.output.startsWith("     2  output            \"b\"\n        ! unknown-marker: "),
            result.output.constData());
        QCOMPARE(result.output.count('\n'), 4);
        QCOMPARE(result.exitCode, 1);
    }

    void exitCodeSaysWhetherThereAreRemarks_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<int>("exitCode");
        QTest::addColumn<QString>("errors");
        const QString good = m_folder.filePath(text("good.log"));
        const QString bad = m_folder.filePath(text("bad.log"));
        QFile goodFile(good);
        QVERIFY(goodFile.open(QIODevice::WriteOnly));
        goodFile.write("-*-total-percentage-*-100%\n");
        QFile badFile(bad);
        QVERIFY(badFile.open(QIODevice::WriteOnly));
        badFile.write("-*-total-percentage-*-99%\n");
        const auto row = [](const QStringList& arguments, int exitCode, const char* errors = "") {
            QTest::newRow(qPrintable(arguments.join(u' ')))
                << arguments << exitCode << text(errors);
        };
        row({text("check"), good}, 0);
        row({text("check"), text("--json"), good}, 0);
        row({text("check"), bad}, 1);
        row({text("check"), bad, text("--json")}, 1);
#ifdef Q_OS_WIN
        const char* const missing = "kestmark: cannot read /no such file: File not found\n";
#else
        const char* const missing =
            "kestmark: cannot read /no such file: No such file or directory\n";
#endif
        row({text("check"), text("/no such file")}, 2, missing);
        row({text("check"), text("/")}, 2, "kestmark: cannot read /: it is a folder\n");
#ifndef Q_OS_WIN
        row({text("check"), text("/dev/zero")}, 2,
            "kestmark: cannot read /dev/zero: it is not a regular file; \"kestmark check -\" reads "
            "a pipe\n");
#endif
        row({text("check"), QString()}, 2, "kestmark: cannot read : no file is named\n");
        row({text("check"), good, bad}, 2, "unexpected argument");
        row({text("check"), text("--all")}, 2, "unknown option \"--all\"");
        row({text("chek")}, 2, "unknown command \"chek\"");
        row({}, 2, "no command given");
    }

    void exitCodeSaysWhetherThereAreRemarks()
    {
        QFETCH(QStringList, arguments);
        QFETCH(int, exitCode);
        QFETCH(QString, errors);
        const Result result = run(arguments);
        QCOMPARE(result.exitCode, exitCode);
        QVERIFY2(errors.isEmpty() ? result.errors.isEmpty() : result.errors.contains(errors),
                 qPrintable(result.errors));
    }

    void standardInputThatCannotBeReadIsTold()
    {
        SKIP_WITHOUT_SHELL();
        const Result result = shell(text("\"$0\" check --json - </"));
        QCOMPARE(result.exitCode, 2);
        QVERIFY2(result.errors.startsWith(text("kestmark: cannot read the standard input: ")),
                 qPrintable(result.errors));
        const QJsonObject object = QJsonDocument::fromJson(result.output).object();
        QVERIFY(object[text("problem")].toString().contains(text("standard input")));
    }

    void resultThatCannotBeWrittenIsAFailure()
    {
        SKIP_WITHOUT_FULL_DEVICE();
        const Result result =
            shell(text("echo '-*-total-percentage-*-100%' | \"$0\" check >/dev/full"));
        QCOMPARE(result.errors, text("kestmark: the output could not be written\n"));
        QCOMPARE(result.exitCode, 1);
    }

    void questionsAreAnswered()
    {
        for (const char* const word : {"--help", "-h"}) {
            const Result help = run({text(word)});
            QVERIFY(
                help.output.startsWith("Usage: kestmark COMMAND\n  check [--remarks] [--json] "));
            QCOMPARE(help.exitCode, 0);
        }
        QCOMPARE(run({text("check"), text("--help")}).exitCode, 0);
        for (const char* const word : {"--version", "-v"}) {
            const Result version = run({text(word)});
            QCOMPARE(version.output, QByteArray("kestmark " KEST_VERSION "\n"));
            QCOMPARE(version.exitCode, 0);
        }
    }

    // Not only at the end: a solver may run for hours.
    void linesAreExplainedWhileTheSolverRuns()
    {
        QProcess process;
        process.start(text(KESTMARK), {text("check"), text("-")});
        process.write("Solving\n");
        QByteArray output;
        QTRY_VERIFY_WITH_TIMEOUT((output += process.readAllStandardOutput()).contains("Solving"),
                                 30000);
        QCOMPARE(process.state(), QProcess::Running);
        process.closeWriteChannel();
        QCOMPARE(finished(process).exitCode, 1);
    }

    void needsNeitherDisplayNorInstallation()
    {
        SKIP_WITHOUT_SHELL();
        const Result result =
            shell(text("echo '-*-total-percentage-*-100%' | env -u DISPLAY -u QT_QPA_PLATFORM "
                       "KEST_HOME=/none KEST_USER_HOME=/none TMPDIR=/none \"$0\" check"));
        QCOMPARE(result.errors, QString());
        QCOMPARE(result.exitCode, 0);
    }

    void jsonHasAll()
    {
        const Result result = run({text("check"), text("--json")},
                                  "-*-notice-*-NOTE 7: well\n\nx -*-file-*-a-*-error-*-\nrest");
        QJsonParseError error = {};
        const QJsonObject all = QJsonDocument::fromJson(result.output, &error).object();
        QCOMPARE(error.error, QJsonParseError::NoError);
        const QJsonArray lines = all[text("lines")].toArray();
        QCOMPARE(lines.size(), 3);
        const QJsonObject notice = lines[0].toObject()[text("messages")].toArray()[0].toObject();
        QCOMPARE(notice, (QJsonObject{{text("type"), text("notice")},
                                      {text("text"), text("NOTE 7: well")},
                                      {text("identifier"), text("7")},
                                      {text("description"), text("well")}}));
        QCOMPARE(lines[1].toObject()[text("messages")].toArray().size(), 0);
        const QJsonObject third = lines[2].toObject();
        QCOMPARE(third[text("line")].toInt(), 3);
        QCOMPARE(third[text("piece")].toInt(), 1);
        QCOMPARE(third[text("remarks")].toArray()[0].toObject()[text("word")].toString(),
                 text("text-before-marker"));
        QCOMPARE(third[text("messages")].toArray()[1].toObject()[text("repeated")].toBool(), true);
        QCOMPARE(all[text("remarks")].toArray()[0].toObject()[text("word")].toString(),
                 text("no-line-end"));
        const QJsonObject summary = all[text("summary")].toObject();
        QCOMPARE(summary[text("lines")].toInt(), 3);
        QCOMPARE(summary[text("blankLines")].toInt(), 1);
        QCOMPARE(summary[text("remarks")].toInt(), 2);
        QCOMPARE(summary[text("messages")].toObject()[text("notice")].toInt(), 1);
    }

    // What it says is what applications get, whatever the bytes are.
    void messagesAreThoseOfTheRunner_data()
    {
        QTest::addColumn<QByteArray>("output");
        QRandomGenerator random = TestRandom::usual(7);
        for (int round = 0; round < 20; ++round) {
            QTest::addRow("%d", round) << randomOutput(random);
        }
    }

    void messagesAreThoseOfTheRunner()
    {
        SKIP_WITHOUT_SHELL();
        QFETCH(QByteArray, output);
        const QString path = write(output);
        const QMap<QString, QStringList> found =
            messages(run({text("check"), text("--json"), path}).output);
        QVERIFY(!found.isEmpty());
        QCOMPARE(found[text("output")], messagesOfRunner(path, common_IProcessMessage::Output));
        QCOMPARE(found[text("error")], messagesOfRunner(path, common_IProcessMessage::Error));
        QCOMPARE(found[text("warning")], messagesOfRunner(path, common_IProcessMessage::Warning));
        QCOMPARE(found[text("percentage")],
                 messagesOfRunner(path, common_IProcessMessage::Percentage));
        QCOMPARE(found[text("file")], messagesOfRunner(path, common_IProcessMessage::File));
    }

    void rubbishIsExplained()
    {
        QRandomGenerator random = TestRandom::usual(9);
        QByteArray rubbish(1 << 20, '\0');
        std::generate(rubbish.begin(), rubbish.end(),
                      [&random] { return static_cast<char>(random.bounded(256)); });
        const Result result = run({text("check"), text("--json")}, rubbish);
        QCOMPARE(result.exitCode, 1);
        QJsonParseError error = {};
        QJsonDocument::fromJson(result.output, &error);
        QCOMPARE(error.error, QJsonParseError::NoError);
    }

    // Much more is read than the program may take in memory.
    void memoryIsConstant_data()
    {
        QTest::addColumn<QString>("producer");
        QTest::newRow("lines") << text("yes -- '-*-notice-*-NOTE 1: x' | head -c 30000000");
        QTest::newRow("one line") << text("head -c 130000000 /dev/zero | tr '\\0' 'x'");
    }

    void memoryIsConstant()
    {
        SKIP_WITHOUT_SHELL();
#if defined(__SANITIZE_ADDRESS__)
        QSKIP("the sanitizer takes memory of its own");
#endif
        QFETCH(QString, producer);
        const Result result = shell(
            producer + text(" | (ulimit -v 120000; \"$0\" check --remarks; echo \"code $?\") | "
                            "tail -n 2"));
        QCOMPARE(result.errors, QString());
        QVERIFY2(QRegularExpression(text("^[0-9]+ remarks?\ncode 1\n$"))
                     .match(QString::fromUtf8(result.output))
                     .hasMatch(),
                 result.output.constData());
    }
};

QTEST_GUILESS_MAIN(tst_kestmark)
#include "tst_kestmark.moc"
