// SPDX-License-Identifier: MIT
#include "Desk.h"

#include <SystemSkips.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

// The program in the terminal of a German user: what people read is German, and what programs read
// is the same as everywhere.
class tst_kestdesk_german : public QObject
{
    Q_OBJECT

private:
    static Desk::Result run(const char* language, const QStringList& arguments, Desk& desk)
    {
        desk.set("KEST_LANGUAGE", text(language));
        return desk.run(arguments);
    }

    static void install(const Desk& desk)
    {
        QVERIFY(Processes::install(text(FAKE_COMPONENT), desk.path("home/bin/runkest")));
        writeFile(desk.path("models/m.nec"), "dies 50 9");
    }

    static QStringList batch() { return {text("--non-interactive"), text("m.nec")}; }

private Q_SLOTS:
    void helpIsGerman_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QString>("german");
        QTest::addColumn<QString>("english");
        QTest::newRow("program") << QStringList{text("--help")} << text("Strg+C stoppt")
                                 << text("Ctrl+C stops");
        QTest::newRow("options") << QStringList{text("options"), text("--help")}
                                 << text("den Wert einer Option anzeigen")
                                 << text("show the value of one");
        QTest::newRow("machines") << QStringList{text("machines"), text("--help")}
                                  << text("die Rechnerdatei des Benutzers")
                                  << text("change the user's machines file");
        QTest::newRow("runs") << QStringList{text("runs"), text("--help")}
                              << text("eine Datei für den Support")
                              << text("one file for the support");
    }

    void helpIsGerman()
    {
        QFETCH(QStringList, arguments);
        QFETCH(QString, german);
        QFETCH(QString, english);
        Desk desk;
        const QString here = run("de", arguments, desk).output;
        QVERIFY2(here.contains(german) && !here.contains(english), qPrintable(here));
        const QString elsewhere = run("", arguments, desk).output;
        QVERIFY2(elsewhere.contains(english) && !elsewhere.contains(german), qPrintable(elsewhere));
    }

    void localeOfTheSystemChooses()
    {
        SKIP_WITHOUT_LANG();
        Desk desk;
        desk.set("LC_ALL", text("de_DE.UTF-8"));
        QVERIFY(desk.run({text("--help")}).output.contains(text("Strg+C stoppt")));
        desk.set("LC_ALL", text("C"));
        QVERIFY(desk.run({text("--help")}).output.contains(text("Ctrl+C stops")));
    }

    void runIsReportedInGermanAndItsLastLineIsNot()
    {
        Desk desk;
        install(desk);
        const Desk::Result result = run("de", batch(), desk);
        QCOMPARE(result.exitCode, 1);
        QVERIFY2(result.output.contains(text("runkest ") + Processes::killed().reasonInGerman),
                 qPrintable(result.output));
        QVERIFY(result.output.contains(text("0 Fehler, 0 Warnungen, 0 Hinweise, 0 Dateien in ")));
        QVERIFY(result.output.endsWith(text("m.nec: fault\n")));
    }

    void filesAreReportedInGerman()
    {
        Desk desk;
        install(desk);
        writeFile(desk.path("models/m.nec"), "files");
        const Desk::Result result = run("de", batch(), desk);
        QCOMPARE(result.exitCode, 0);
        QVERIFY2(result.output.contains(text("b.csv geschrieben\na.csv geschrieben\n")),
                 qPrintable(result.output));
        QVERIFY(result.output.contains(text(", 2 Dateien in ")));
    }

    void recordIsTheSameInEachLanguage()
    {
        Desk desk;
        install(desk);
        run("de", batch(), desk);
        const QStringList show{text("runs"), text("show"), text("--json")};
        const QString json = run("de", show, desk).output;
        const QJsonObject record = QJsonDocument::fromJson(json.toUtf8()).object();
        QCOMPARE(record.value(text("state")).toString(), text("fault"));
        QCOMPARE(record.value(text("outcome")).toString(), Processes::killed().state);
        QVERIFY(record.value(text("reason")).toString().startsWith(Processes::killed().reason));
        QCOMPARE(run("", show, desk).output, json);
    }

    void recordOfAnyLanguageIsShownInGerman()
    {
        Desk desk;
        install(desk);
        run("", batch(), desk);
        const QString shown = run("de", {text("runs"), text("show")}, desk).output;
        for (const QString& part :
             {text("Lauf 1: m.nec, ") + Processes::killed().stateInGerman + text("\n"),
              Processes::killed().reasonInGerman, text("  Komponente   runkest\n"),
              text("  aus          Terminal\n")}) {
            QVERIFY2(shown.contains(part), qPrintable(shown));
        }
        const QString list = run("de", {text("runs"), text("list")}, desk).output;
        QVERIFY2(list.startsWith(text("Lauf")) && list.contains(text(" fault ")), qPrintable(list));
        const QStringList filter{text("runs"), text("list"), text("--state"), text("fault")};
        QCOMPARE(run("de", filter, desk).output, list);
    }

    void reasonOfARefusedRunIsGermanButRecordedInEnglish()
    {
        Desk desk;
        install(desk);
        QVERIFY(QFile::remove(Processes::installed(desk.path("home/bin/runkest"))));
        const Desk::Result result = run("de", batch(), desk);
        QCOMPARE(result.exitCode, 2);
        QVERIFY2(result.errors.contains(text("die Komponente runkest gibt es nicht in ")),
                 qPrintable(result.errors));
        const Desk::Result json = run("de", batch() + QStringList(text("--json")), desk);
        QVERIFY2(json.output.contains(text("there is no component runkest in ")),
                 qPrintable(json.output));
    }

    void whatProgramsReadIsTheSame_data()
    {
        QTest::addColumn<QStringList>("arguments");
        for (const char* const command :
             {"options list", "options list --json", "options get Kest.ProcessPriority",
              "options values Kest.ProcessPriority", "machines show --json", "runs list --json"}) {
            QTest::newRow(command) << text(command).split(QLatin1Char(' '));
        }
    }

    void whatProgramsReadIsTheSame()
    {
        QFETCH(QStringList, arguments);
        Desk desk;
        writeFile(desk.path("user/machines.kest"), "localhost:2\nlocalhost:x\n");
        const Desk::Result german = run("de", arguments, desk);
        const Desk::Result english = run("", arguments, desk);
        QVERIFY(!english.output.isEmpty());
        QCOMPARE(german.output, english.output);
        QCOMPARE(german.exitCode, english.exitCode);
    }

    void mistakeIsExplainedInGerman_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QString>("german");
        const auto add = [](const char* command, const char* german) {
            QTest::newRow(command) << text(command).split(QLatin1Char(' ')) << text(german);
        };
        add("options get No.Such", "die Option „No.Such“ gibt es nicht");
        add("options set Kest.NumberOfParallelProcesses=x",
            "nimmt eine ganze Zahl von 1 bis 4096 an");
        add("runs show 7", "Lauf 7 gibt es nicht");
        add("machines show", "Es gibt keine Rechnerdatei.");
        add("--non-interactive --jobs 0 m.nec", "--jobs nimmt eine Zahl von 1 bis 1000 an");
        add("--component nosuch --non-interactive m.nec",
            "„nosuch“ ist kein Name einer Komponente");
        add("--component prekest --parallel --non-interactive m.nec",
            "--parallel hat für prekest keine Bedeutung");
    }

    void mistakeIsExplainedInGerman()
    {
        QFETCH(QStringList, arguments);
        QFETCH(QString, german);
        Desk desk;
        const Desk::Result result = run("de", arguments, desk);
        const QString shown = result.output + result.errors;
        QVERIFY(result.exitCode != 0);
        QVERIFY2(shown.contains(german), qPrintable(shown));
    }
};

QTEST_GUILESS_MAIN(tst_kestdesk_german)
#include "tst_kestdesk_german.moc"
