// SPDX-License-Identifier: MIT
#include "BatchStage.h"

#include <TerminalRun.h>
#include <sendSignal.h>

#include <QElapsedTimer>
#include <QFileInfo>
#include <QRegularExpression>

#include <unistd.h>

namespace {

QStringList lines(const QByteArray& output)
{
    QStringList result = QString::fromUtf8(output).split(QLatin1Char('\n'));
    result.removeLast();
    return result;
}

const char* const escape = "\x1b";

} // namespace

// Runs of components in a terminal, from their output to the exit code.
class tst_kestdesk : public QObject, private BatchStage
{
    Q_OBJECT

private:
    /// Runs it on a terminal of 60 columns and returns all that it writes there.
    Result runOnTerminal(const QStringList& arguments)
    {
        const TerminalRun run = TerminalRun::of(text(KESTDESK), arguments, environment(), {}, 60);
        Result result;
        result.exitCode = run.exitCode;
        result.output = run.output;
        return result;
    }

private Q_SLOTS:
    void init() { reset(); }

    void showsWhatTheComponentPrintsInOrder()
    {
        const Result result =
            runModel({text("out"), text(R"(plain  \n-*-notice-*-NOTE 101: fact\n-*-linefeed-*-\n)"),
                      text("out"), text("-*-warning-*-WARNING 3201: long\\n-*-error-*- bad\\n"),
                      text("out"), text("-*-variable-*- n = 3 \\n-*-percentage-*-50%\\n")});
        QCOMPARE(result.exitCode, 1);
        QVERIFY2(result.errors.isEmpty(), result.errors.constData());
        const QStringList shown = lines(result.output);
        QCOMPARE(shown.mid(0, 6),
                 QStringList({text("plain  "), text("NOTE 101: fact"), QString(),
                              text("WARNING 3201: long"), text("bad"), text("n = 3")}));
        QVERIFY(shown.value(6).startsWith(text("1 error, 1 warning, 1 notice, 0 files in ")));
        QCOMPARE(shown.value(7), text("\"kestdesk runs show 1\" shows this run again"));
        QCOMPARE(shown.value(8),
                 text("runkest ended by itself, but reported only 0 % of the run as "
                      "done"));
        QCOMPARE(shown.value(9), text("model.commands: fault"));
        QCOMPARE(shown.size(), 10);
    }

    void standardErrorOfTheComponentIsShownToo()
    {
        const Result result = runModel({text("err"), text("-*-error-*-broken\\n")});
        QCOMPARE(lines(result.output).value(0), text("broken"));
        QVERIFY(result.errors.isEmpty());
    }

    void outcomeAndExitCode_data()
    {
        QTest::addColumn<QStringList>("commands");
        QTest::addColumn<QString>("outcome");
        QTest::addColumn<int>("exitCode");
        const QString done = text("-*-total-percentage-*-100%\\n");
        // clang-format off
        QTest::newRow("all done")          << QStringList{text("out"), done}                               << "valid" << 0;
        QTest::newRow("not all done")      << QStringList{text("out"), text("-*-total-percentage-*-99%\\n")} << "fault" << 1;
        QTest::newRow("nothing said")      << QStringList{}                                                << "fault" << 1;
        QTest::newRow("done, but exit 1")  << QStringList{text("out"), done, text("exit"), text("1")}      << "fault" << 1;
        QTest::newRow("done, but crashed") << QStringList{text("out"), done, text("crash")}                << "fault" << 1;
        QTest::newRow("phase alone")       << QStringList{text("out"), text("-*-percentage-*-100%\\n")}    << "fault" << 1;
        // clang-format on
    }

    void outcomeAndExitCode()
    {
        QFETCH(QStringList, commands);
        QFETCH(QString, outcome);
        QFETCH(int, exitCode);
        const Result result = runModel(commands);
        QCOMPARE(result.exitCode, exitCode);
        QCOMPARE(lines(result.output).constLast(), text("model.commands: ") + outcome);
    }

    void writtenFilesAreListedOnceInTheSummary()
    {
        const Result result = runModel({text("out"), text("-*-file-*- a.out \\n-*-file-*-b c.csv\\n"
                                                          "-*-file-*-a.out\\nplain\\n")});
        QCOMPARE(lines(result.output).mid(0, 3),
                 QStringList({text("plain"), text("wrote a.out"), text("wrote b c.csv")}));
        QVERIFY(lines(result.output).value(3).contains(text("2 files in ")));
    }

    void componentRunsInTheModelsFolderOnItsName()
    {
        const QString file = model(text("a \"model\""), {text("directory")});
        const Result result = run({text("--non-interactive"), file});
        QCOMPARE(lines(result.output).value(0), QFileInfo(m_folder->path()).canonicalFilePath());
        QVERIFY(lines(result.output).constLast().startsWith(text("a \"model\".commands: ")));
    }

    void otherComponentMayBeNamed()
    {
        QVERIFY(QFile::remove(m_home + text("/bin/runkest")));
        const QString file = model(text("model"), {text("out"), text("pre\\n")});
        QCOMPARE(
            run({text("--non-interactive"), text("--component"), text("prekest"), file}).exitCode,
            1);
        QCOMPARE(run({text("--non-interactive"), file}).exitCode, 2);
    }

    void startThatFailsSaysWhy_data()
    {
        QTest::addColumn<QString>("component");
        QTest::addColumn<QString>("model");
        QTest::addColumn<QByteArray>("reason");
        QTest::newRow("no such component")
            << "optkest"
            << "here" << QByteArray("there is no component optkest in ");
        QTest::newRow("not executable")
            << "amrkest"
            << "here" << QByteArray("there is no component amrkest in ");
        QTest::newRow("no program in it") << "prekest"
                                          << "here" << QByteArray("cannot start ");
        QTest::newRow("no such model") << "runkest"
                                       << "missing" << QByteArray("there is no model ");
    }

    void startThatFailsSaysWhy()
    {
        QFETCH(QString, component);
        QFETCH(QString, model);
        QFETCH(QByteArray, reason);
        QFile plain(m_home + text("/bin/amrkest"));
        QVERIFY(plain.open(QIODevice::WriteOnly));
        QVERIFY(QFile::remove(m_home + text("/bin/prekest")));
        QFile strange(m_home + text("/bin/prekest"));
        QVERIFY(strange.open(QIODevice::WriteOnly));
        strange.write("#!/no/such/interpreter\n");
        strange.setPermissions(QFile::ReadOwner | QFile::ExeOwner);
        strange.close();
        this->model(text("here"), {});
        const Result result = run({text("--non-interactive"), text("--component"), component,
                                   m_folder->filePath(model + text(".commands"))});
        QCOMPARE(result.exitCode, 2);
        QVERIFY2(result.errors.contains(reason), result.errors.constData());
        QCOMPARE(lines(result.output).constLast(), model + text(".commands: could not start"));
    }

    void severalModelsRunOneAfterTheOther_data()
    {
        QTest::addColumn<QStringList>("models");
        QTest::addColumn<QString>("summary");
        QTest::addColumn<int>("exitCode");
        // clang-format off
        QTest::newRow("all valid")     << QStringList{text("good"), text("good")}                 << "2 models: 2 valid"                               << 0;
        QTest::newRow("a fault")       << QStringList{text("good"), text("bad"), text("good")}    << "3 models: 2 valid, 1 fault"                      << 1;
        QTest::newRow("one not there") << QStringList{text("missing"), text("bad"), text("good")} << "3 models: 1 valid, 1 fault, 1 could not start"   << 2;
        // clang-format on
    }

    void severalModelsRunOneAfterTheOther()
    {
        QFETCH(QStringList, models);
        QFETCH(QString, summary);
        QFETCH(int, exitCode);
        model(text("good"), {text("out"), text("-*-total-percentage-*-100%\\n")});
        model(text("bad"), {text("exit"), text("1")});
        QStringList arguments{text("--non-interactive")};
        for (const QString& name : models) {
            arguments.append(m_folder->filePath(name + text(".commands")));
        }
        const Result result = run(arguments);
        QCOMPARE(result.exitCode, exitCode);
        QCOMPARE(lines(result.output).constLast(), summary);
    }

    void controlCharactersDoNotReachTheTerminal()
    {
        const Result result = runModel({text("out"), text(R"(a\x1b[2Jb\x07\tc\xc2\x9bd\0e\n)")});
        const QString replacement(QChar::ReplacementCharacter);
        QCOMPARE(lines(result.output).value(0),
                 text("a%1[2Jb%1\tc%1d%1e").replace(text("%1"), replacement));
    }

    void floodIsShownWhole()
    {
        const Result result = runModel({text("lines"), text("200000"), text("55")});
        const QStringList shown = lines(result.output);
        QCOMPARE(shown.size(), 200004); // and the ends of the run
        for (int i = 0; i < 200000; ++i) {
            QVERIFY(shown[i].startsWith(QString::number(i) + QLatin1Char('.')));
        }
    }

    void linesComeAsTheyArePrinted()
    {
        QProcess process;
        start(process, {text("--non-interactive"),
                        model(text("model"), {text("out"), text("early\\n"), text("wait-for-file"),
                                              m_folder->filePath(text("go"))})});
        QVERIFY(process.waitForReadyRead());
        QCOMPARE(process.readAll(), QByteArray("early\n"));
        QFile(m_folder->filePath(text("go"))).open(QIODevice::WriteOnly);
        QVERIFY(process.waitForFinished());
    }

    void plainWithoutATerminal()
    {
        const Result result =
            runModel({text("out"), text("-*-error-*-bad\\n-*-percentage-*-5%\\n")});
        QVERIFY(!result.output.contains(escape));
        QVERIFY(!result.output.contains('\r'));
    }

    void colouredOnATerminal()
    {
        const QString file = model(
            text("model"),
            {text("out"), text(R"(-*-error-*-bad\n-*-warning-*-hot\n-*-notice-*-wet\ndry\n)")});
        const QByteArray output = runOnTerminal({text("--non-interactive"), file}).output;
        QVERIFY2(output.contains("\x1b[31mbad\x1b[0m\r\n"), output.constData());
        QVERIFY(output.contains("\x1b[33mhot\x1b[0m\r\n"));
        QVERIFY(output.contains("\x1b[36mwet\x1b[0m\r\n"));
        QVERIFY(output.contains("dry\r\n"));
        QVERIFY(output.contains("\x1b[31mmodel.commands: fault\x1b[0m\r\n"));
    }

    void withoutColoursWhenTheUserWantsNone_data()
    {
        QTest::addColumn<QString>("variable");
        QTest::newRow("NO_COLOR") << "NO_COLOR=1";
        QTest::newRow("dumb terminal") << "TERM=dumb";
    }

    void withoutColoursWhenTheUserWantsNone()
    {
        QFETCH(QString, variable);
        m_variables.append(variable);
        const QString file = model(text("model"), {text("out"), text("-*-error-*-bad\\n")});
        const QByteArray output = runOnTerminal({text("--non-interactive"), file}).output;
        QVERIFY2(!output.contains("\x1b[31m"), output.constData());
        QVERIFY(output.contains("bad\r\n"));
    }

    void progressLineUpdatesInPlaceAndIsGoneAtTheEnd()
    {
        const QString file =
            model(text("model"),
                  {text("out"), text("-*-percentage-*-40%\\n-*-total-percentage-*-30%\\n"),
                   text("sleep"), text("700"), text("out"), text("-*-total-percentage-*-100%\\n")});
        const Result result = runOnTerminal({text("--non-interactive"), file});
        QCOMPARE(result.exitCode, 0);
        const QByteArray status = "[######..............]  30% in all, phase  40%, 0:00:00  mo";
        QCOMPARE(status.size(), 59); // one less than the terminal is wide
        QVERIFY2(result.output.contains(status + "\r\x1b[K"), result.output.constData());
        QVERIFY(!result.output.contains(status + "d"));
        QCOMPARE(result.output.count('\n'), 2);
        QVERIFY(result.output.endsWith("\x1b[32mmodel.commands: valid\x1b[0m\r\n"));
    }

    void stopEndsTheComponentThroughTheRunner_data()
    {
        QTest::addColumn<int>("signal");
        QTest::newRow("Ctrl+C") << int(SIGINT);
        QTest::newRow("terminate") << int(SIGTERM);
    }

    void stopEndsTheComponentThroughTheRunner()
    {
        QFETCH(int, signal);
        QProcess process;
        start(process,
              {text("--non-interactive"),
               model(text("model"), {text("out"), text("up\\n"), text("sleep"), text("60000")}),
               model(text("next"), {text("touch"), m_folder->filePath(text("ran"))})});
        QVERIFY(process.waitForReadyRead());
        QElapsedTimer timer;
        timer.start();
        QVERIFY(sendSignal(process.processId(), signal));
        QVERIFY(process.waitForFinished());
        QVERIFY(timer.elapsed() < 5000);
        QCOMPARE(process.exitCode(), 130);
        QVERIFY(process.readAllStandardError().contains("kestdesk: stopping"));
        const QStringList shown = lines(process.readAllStandardOutput());
        QVERIFY(shown.contains(text("model.commands: stopped")));
        QCOMPARE(shown.last(), text("1 model: 1 stopped"));
        QVERIFY(!QFile::exists(m_folder->filePath(text("ran"))));
    }

    void secondStopEndsAtOnceAndKillsTheComponent()
    {
        const QString alive = m_folder->filePath(text("alive"));
        QProcess process;
        start(process, {text("--non-interactive"),
                        model(text("model"), {text("ignore-terminate"), text("out"), text("up\\n"),
                                              text("sleep"), text("3000"), text("touch"), alive})});
        QVERIFY(process.waitForReadyRead());
        QVERIFY(sendSignal(process.processId(), SIGINT));
        QVERIFY(!process.waitForFinished(500));
        QElapsedTimer timer;
        timer.start();
        QVERIFY(sendSignal(process.processId(), SIGINT));
        QVERIFY(process.waitForFinished());
        QVERIFY(timer.elapsed() < 2000);
        QCOMPARE(process.exitCode(), 130);
        QTest::qWait(3500);
        QVERIFY(!QFile::exists(alive));
    }

#ifdef KEST_SUITE
    QString sampleModel(const char* name)
    {
        QString model = m_folder->filePath(text(name));
        QFile::copy(text(KEST_SUITE "/models/") + text(name), model);
        return model;
    }

    void dipoleIsComputedToTheEnd()
    {
        m_home = text(KEST_SUITE);
        const Result result = run({text("--non-interactive"), sampleModel("dipole.nec")});
        QCOMPARE(result.exitCode, 0);
        const QStringList shown = lines(result.output);
        QVERIFY(!shown.filter(QRegularExpression(text("^NOTE \\d+: resonance at 28\\d\\.\\d+ MHz")))
                     .isEmpty());
        QVERIFY(shown.contains(text("wrote ") + m_folder->filePath(text("dipole.csv"))));
        QVERIFY(QFile::exists(m_folder->filePath(text("dipole.csv"))));
        QVERIFY(QFile::exists(m_folder->filePath(text("dipole.out"))));
        QCOMPARE(shown.last(), text("dipole.nec: valid"));
    }

    void goodDeckIsValidForThePreProcessorToo()
    {
        m_home = text(KEST_SUITE);
        const Result result = run({text("--non-interactive"), text("--component"), text("prekest"),
                                   sampleModel("yagi.nec")});
        QCOMPARE(result.exitCode, 0);
        QCOMPARE(lines(result.output).constLast(), text("yagi.nec: valid"));
    }

    void deckWithMistakesIsAFaultWithFilesAndLines_data()
    {
        QTest::addColumn<QString>("component");
        QTest::newRow("pre-processor") << "prekest";
        QTest::newRow("solver") << "runkest";
    }

    void deckWithMistakesIsAFaultWithFilesAndLines()
    {
        QFETCH(QString, component);
        m_home = text(KEST_SUITE);
        const Result result = run({text("--non-interactive"), text("--component"), component,
                                   sampleModel("mistakes.nec")});
        QCOMPARE(result.exitCode, 1);
        const QStringList errors =
            lines(result.output)
                .filter(QRegularExpression(
                    text(R"(^ERROR \d+: .+ \(mistakes\.nec, line \d+(, tag \d+)?\)$)")));
        QVERIFY2(errors.size() >= 5, result.output.constData());
        QVERIFY(!QFile::exists(m_folder->filePath(text("mistakes.csv"))));
        QCOMPARE(lines(result.output).constLast(), text("mistakes.nec: fault"));
    }
#endif
};

QTEST_GUILESS_MAIN(tst_kestdesk)
#include "tst_kestdesk.moc"
