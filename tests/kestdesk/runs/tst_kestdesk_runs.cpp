// SPDX-License-Identifier: MIT
#include "../../support/SystemSkips.h"
#include "Desk.h"
#include "RecordsStage.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

using Type = RecordedMessage::Type;

} // namespace

// The commands "kestdesk runs ...", on records that were made by runs and on some made by hand.
class tst_kestdesk_runs : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<Desk> m_desk;
    std::unique_ptr<RecordsStage> m_stage;

    Desk::Result runs(const QStringList& words) const
    {
        return m_desk->run(QStringList(text("runs")) + words);
    }

    QJsonObject json(const QStringList& words) const
    {
        return QJsonDocument::fromJson(runs(words).output.toUtf8()).object();
    }

    void useScript(const QByteArray& script) const
    {
        const QString program = m_desk->path("home/bin/runkest");
        QFile::remove(program);
        writeFile(program, "#!/bin/sh\n" + script);
        QVERIFY(
            QFile::setPermissions(program, QFile::ReadOwner | QFile::ExeOwner | QFile::WriteOwner));
    }

    // The records of the stage are those of the desk's user.
    void init(const char* user)
    {
        m_desk->set("KEST_USER_HOME", m_stage->path(text(user)));
        m_desk->set("TZ", text("UTC"));
    }

    RunRecord fault() const
    {
        RunRecord record = m_stage->valid();
        record.model = m_stage->modelPath(text("loop.nec"));
        record.state = RunRecord::State::Fault;
        record.outcome = text("fault, SIGKILL");
        record.reason = text("was ended by SIGKILL");
        record.warnings = 1;
        record.lastLines = QStringList{text("last words")};
        return record;
    }

private Q_SLOTS:
    void init()
    {
        m_desk = std::make_unique<Desk>();
        m_stage = std::make_unique<RecordsStage>();
        init("user/kest");
    }

    void emptyArchiveHasNothingToShow_data()
    {
        QTest::addColumn<QStringList>("words");
        QTest::addColumn<int>("exitCode");
        QTest::addColumn<QString>("error");
        const auto row = [](const char* words, int exitCode, const char* error) {
            QTest::newRow(words) << text(words).split(QLatin1Char(' ')) << exitCode << text(error);
        };
        row("list", 1, "no runs are recorded");
        row("show", 1, "no runs are recorded");
        row("show last", 1, "no runs are recorded");
        row("show 3", 1, "there is no run 3; \"kestdesk runs list\" shows all");
        row("again 3", 1, "there is no run 3; \"kestdesk runs list\" shows all");
        row("compare 1 2", 2, "there is no run 1; \"kestdesk runs list\" shows all");
        row("export 1 a.zip", 1, "there is no run 1; \"kestdesk runs list\" shows all");
        row("clean 1", 1, "there is no run 1; nothing was deleted");
    }

    void emptyArchiveHasNothingToShow()
    {
        QFETCH(QStringList, words);
        const Desk::Result result = runs(words);
        QTEST(result.exitCode, "exitCode");
        QCOMPARE(result.output, QString());
        QFETCH(QString, error);
        QCOMPARE(result.errors, text("kestdesk: ") + error + QLatin1Char('\n'));
    }

    void wrongWordsAreRefused_data()
    {
        QTest::addColumn<QStringList>("words");
        for (const char* const words : {"show 0",
                                        "show -1",
                                        "show 1.5",
                                        "show x",
                                        "show 99999999999",
                                        "show 1 2",
                                        "again",
                                        "again 1 --without",
                                        "again 1 --without a,",
                                        "compare 1",
                                        "compare 1 2 3",
                                        "export 1",
                                        "export 1 model.nec",
                                        "list --last 0",
                                        "list --state good",
                                        "show --json --output",
                                        "show --output --messages",
                                        "clean --all 1",
                                        "clean --all --days 3",
                                        "clean --days 3 1",
                                        "clean x",
                                        "clean --days -1"}) {
            QTest::newRow(words) << text(words).split(QLatin1Char(' '));
        }
    }

    void wrongWordsAreRefused()
    {
        m_stage->add(m_stage->valid());
        QFETCH(QStringList, words);
        const Desk::Result result = runs(words);
        QCOMPARE(result.exitCode, 2);
        QVERIFY(result.errors.contains(text("kestdesk: ")));
        QCOMPARE(m_stage->archive().numbers().size(), 1);
    }

    void listHasALineForEachRun()
    {
        m_stage->add(m_stage->valid());
        m_stage->add(fault());
        const Desk::Result result = runs({text("list")});
        QCOMPARE(result.errors, QString());
        QCOMPARE(result.exitCode, 0);
        QCOMPARE(
            result.output,
            text(
                "Run  Started              State  Duration  Errors  Warnings  Component  Model\n"
                "  2  2026-03-01 10:20:30  fault     5.0 s       0         1  runkest    loop.nec\n"
                "  1  2026-03-01 10:20:30  valid     5.0 s       0         0  runkest    "
                "dipole.nec\n"));
    }

    void listIsFiltered_data()
    {
        QTest::addColumn<QStringList>("words");
        QTest::addColumn<QString>("numbers");
        const auto row = [](const char* words, const char* numbers) {
            QTest::newRow(words) << text(words).split(QLatin1Char(' ')) << text(numbers);
        };
        row("--model dipole.nec", "3 1");
        row("--model l*", "2");
        row("--state fault", "2");
        row("--last 2", "3 2");
        row("--state valid --last 1", "3");
        row("--model loop.nec --state valid", "");
    }

    void listIsFiltered()
    {
        m_stage->add(m_stage->valid());
        m_stage->add(fault());
        m_stage->add(m_stage->valid());
        QFETCH(QStringList, words);
        QStringList numbers;
        const QJsonArray found =
            json(QStringList{text("list"), text("--json")} + words).value(text("runs")).toArray();
        for (const QJsonValue& run : found) {
            numbers.append(QString::number(run[text("number")].toInt()));
        }
        QTEST(numbers.join(QLatin1Char(' ')), "numbers");
    }

    void showTellsHowAndWhy()
    {
        m_stage->add(fault(), {{7, Type::Output, text("first words")},
                               {8, Type::Warning, text("hot\u202ewire")}});
        const Desk::Result result = runs({text("show")});
        QCOMPARE(result.exitCode, 0);
        for (const char* const part :
             {"Run 1: loop.nec, fault, SIGKILL\n", "runkest was ended by SIGKILL\n",
              "\nwarning: hot<U+202E>wire\n", "\n  last words\n", "2026-03-01 10:20:30"}) {
            QVERIFY2(result.output.contains(text(part)), qPrintable(result.output));
        }
    }

    void showHasAllMessagesOrTheOutputAlone()
    {
        m_stage->add(fault(), {{7, Type::Output, text("one")},
                               {61000, Type::Error, text("two")},
                               {62000, Type::Output, text("three")}});
        QCOMPARE(runs({text("show"), text("1"), text("--output")}).output, text("one\nthree\n"));
        QVERIFY(runs({text("show"), text("--messages")})
                    .output.contains(text("0:01:01  error             two\n")));
        const QJsonObject shown = json({text("show"), text("--messages"), text("--json")});
        QCOMPARE(shown[text("messages")][1][text("text")].toString(), text("two"));
        QCOMPARE(shown[text("state")].toString(), text("fault"));
        QVERIFY(!json({text("show"), text("--json")}).contains(text("messages")));
    }

    void damagedRecordsAreListedAndCanBeDeleted()
    {
        m_stage->add(m_stage->valid());
        const RunRecord damaged = m_stage->add(m_stage->valid());
        writeFile(damaged.folder + text("/run.json"), QByteArray(R"({"format": 1})").chopped(1));
        const Desk::Result listed = runs({text("list")});
        QCOMPARE(listed.exitCode, 0);
        QCOMPARE(listed.errors, QString());
        const QStringList lines = listed.output.split(QLatin1Char('\n'));
        QVERIFY2(lines.at(1).startsWith(text("  2  ")) && lines.at(1).contains(text("  damaged  ")),
                 qPrintable(lines.at(1)));
        QVERIFY(lines.at(2).contains(text("  valid  ")));
        const QJsonObject only =
            json({text("list"), text("--state"), text("damaged"), text("--json")});
        QCOMPARE(only[text("runs")].toArray().size(), 1);
        const QJsonValue found = only[text("runs")][0];
        QCOMPARE(found[text("number")].toInt(), 2);
        QCOMPARE(found[text("folder")].toString(), damaged.folder);
        QCOMPARE(found[text("duration")].toInt(), 5000); // its end is whole
        QVERIFY(found[text("problem")].toString().endsWith(text("run.json cannot be read")));
        const Desk::Result shown = runs({text("show"), text("2")});
        QCOMPARE(shown.exitCode, 1);
        QVERIFY2(shown.errors.contains(text("the record of run 2 in ")), qPrintable(shown.errors));
        QCOMPARE(runs({text("clean"), text("2")}).exitCode, 0);
        QCOMPARE(m_stage->archive().numbers(), QVector<int>{1});
        writeFile(m_stage->archive().folder() + text("/1/run.json"), "");
        QCOMPARE(runs({text("clean"), text("--all")}).output, text("Deleted 1 record.\n"));
    }

    void recordWithoutItsFilesIsShown()
    {
        const RunRecord record = m_stage->add(fault());
        QVERIFY(QFile::remove(QDir(record.folder).filePath(text("messages.jsonl"))));
        QVERIFY(QFile::remove(record.modelCopyPath()));
        const Desk::Result result = runs({text("show")});
        QCOMPARE(result.exitCode, 0);
        QVERIFY(result.output.contains(text("the messages of this run are missing")));
    }

    // The owner of the record is this process, which is alive.
    void runningRunIsShownAndNotDeleted()
    {
        RunRecord running = m_stage->valid();
        running.state = RunRecord::State::Running;
        m_stage->add(running, {{5, Type::Output, text("so far")}});
        QVERIFY(runs({text("list")}).output.contains(text("  running  ")));
        QVERIFY(runs({text("show")}).output.contains(text("\n  so far\n")));
        const Desk::Result result = runs({text("clean"), text("last")});
        QCOMPARE(result.exitCode, 1);
        QVERIFY(result.errors.contains(text("run 1 is still running")));
        QCOMPARE(m_stage->archive().numbers().size(), 1);
    }

    void comparisonEndsAsThatOfFiles()
    {
        m_stage->add(m_stage->valid(), {}, "GE\nFR 1\nEN\n");
        m_stage->add(m_stage->valid(), {}, "GE\nFR 1\nEN\n");
        m_stage->add(m_stage->valid(), {{1, Type::Error, text("bad")}}, "GE\nFR 2\u202e\nEN\n");
        const Desk::Result same = runs({text("compare"), text("1"), text("2")});
        QCOMPARE(same.exitCode, 0);
        QVERIFY(same.output.endsWith(text("The runs are the same.\n")));
        const Desk::Result different = runs({text("compare"), text("1"), text("last")});
        QCOMPARE(different.exitCode, 1);
        QCOMPARE(different.output,
                 text("- run 1, 5.0 s\n+ run 3, 5.0 s\nThe model, line 2 and line 2\n"
                      "  - FR 1\n  + FR 2<U+202E>\nMessages\n  + error: bad\n"));
        QCOMPARE(json({text("compare"), text("1"), text("3"), text("--json")}).value(text("same")),
                 QJsonValue(false));
    }

    void exportIsWritten()
    {
        m_stage->add(m_stage->valid());
        const Desk::Result result = runs({text("export"), text("last"), text("run.zip")});
        QCOMPARE(result.exitCode, 0);
        QVERIFY(result.output.startsWith(text("Wrote run.zip (")));
        QVERIFY(contentOf(m_desk->path("models/run.zip")).startsWith("PK"));
        QCOMPARE(runs({text("export"), text("1"), text("none/run.zip")}).exitCode, 1);
    }

    void cleanDeletesWhatItIsAskedFor()
    {
        for (int i = 0; i < 5; ++i) {
            m_stage->add(m_stage->valid());
        }
        QCOMPARE(runs({text("clean"), text("2"), text("9")}).exitCode, 1);
        QCOMPARE(m_stage->archive().numbers().size(), 5);
        QCOMPARE(runs({text("clean"), text("2"), text("2"), text("4")}).output,
                 text("Deleted 2 records.\n"));
        QCOMPARE(m_stage->archive().numbers(), QVector<int>({1, 3, 5}));
        QCOMPARE(runs({text("clean"), text("--megabytes"), text("0")}).output,
                 text("Deleted 2 records.\n"));
        QCOMPARE(m_stage->archive().numbers(), QVector<int>{5});
        QCOMPARE(runs({text("clean"), text("--all")}).output, text("Deleted 1 record.\n"));
        QCOMPARE(m_stage->archive().numbers(), QVector<int>());
    }

    void batchRunGivesJsonAndNothingElse()
    {
        SKIP_WITHOUT_SHELL();
        useScript("echo hello; echo '-*-total-percentage-*-100%'; test \"$1\" != bad.nec\n");
        writeFile(m_desk->path("models/good.nec"), "x");
        writeFile(m_desk->path("models/bad.nec"), "x");
        const Desk::Result result = m_desk->run(
            {text("--non-interactive"), text("--json"), text("good.nec"), text("bad.nec")});
        QCOMPARE(result.exitCode, 1);
        const QJsonObject shown = QJsonDocument::fromJson(result.output.toUtf8()).object();
        QCOMPARE(shown[text("exitCode")].toInt(), 1);
        QCOMPARE(shown[text("runs")].toArray().size(), 2);
        QCOMPARE(shown[text("runs")][0][text("state")].toString(), text("valid"));
        QCOMPARE(shown[text("runs")][1][text("state")].toString(), text("fault"));
        QCOMPARE(shown[text("notBegun")].toArray().size(), 0);
        QVERIFY(result.errors.contains(text("hello\n")));
        QVERIFY2(result.errors.endsWith(text("bad.nec: fault\n2 models: 1 valid, 1 fault\n")),
                 qPrintable(result.errors));
    }

    // What was printed more than two seconds before is in the record.
    void runWhoseProgramWasKilledIsInterruptedWithItsMessages()
    {
        SKIP_WITHOUT_SHELL();
        useScript("echo before; echo '-*-warning-*-hot'; sleep 60\n");
        writeFile(m_desk->path("models/m.nec"), "x");
        QProcess process;
        m_desk->start(process, {text("--non-interactive"), text("m.nec")});
        const auto messages = [this] {
            return contentOf(m_stage->path(text("user/kest/runs/1/messages.jsonl")));
        };
        QTRY_VERIFY_WITH_TIMEOUT(messages().contains("hot"), 30000);
        process.kill();
        QVERIFY(process.waitForFinished(30000));
        const Desk::Result listed = runs({text("list")});
        QVERIFY2(listed.output.contains(text("  interrupted  ")), qPrintable(listed.output));
        const Desk::Result shown = runs({text("show")});
        QVERIFY2(shown.output.contains(text("\n  before\n")) &&
                     shown.output.contains(text("\nwarning: hot\n")) &&
                     shown.output.contains(text("kestdesk, which followed it, was killed")),
                 qPrintable(shown.output));
        const QStringList processes = m_desk->processes();
        for (const QString& left : processes) {
            QProcess::execute(text("kill"), {text("-9"), left.section(QLatin1Char(' '), 0, 0)});
        }
    }

    void tableOfARunIsKept()
    {
        SKIP_WITHOUT_SHELL();
        const QByteArray table = "frequency_MHz,resistance_ohm,reactance_ohm,swr\n1,50,0,1\n";
        useScript("printf '" + QByteArray(table).replace("\n", "\\n") +
                  "' > m.csv; echo '-*-file-*-m.csv'; echo '-*-total-percentage-*-100%'\n");
        writeFile(m_desk->path("models/m.nec"), "x");
        QCOMPARE(m_desk->run({text("--non-interactive"), text("m.nec")}).exitCode, 0);
        QCOMPARE(
            json({text("show"), text("--json")}).value(text("files"))[0][text("copy")].toString(),
            text("table-1.csv"));
        QCOMPARE(contentOf(m_stage->path(text("user/kest/runs/1/table-1.csv"))), table);
    }
};

QTEST_GUILESS_MAIN(tst_kestdesk_runs)
#include "tst_kestdesk_runs.moc"
