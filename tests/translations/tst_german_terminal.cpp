// SPDX-License-Identifier: MIT
#include <SystemSkips.h>
#include <Text.h>
#include <UnixLines.h>

#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

namespace {

struct Answer
{
    int exitCode = -1;
    QString output;
    QString errors;
};

// What programs need, some of it on Windows.
constexpr const char* kept[] = {"PATH",        "KEST_SANDBOX", "SystemRoot",  "TEMP",
                                "USERPROFILE", "APPDATA",      "LOCALAPPDATA"};

// The programs by their names.
QString program(const QString& name)
{
    const QStringList paths = text(PROGRAMS).split(QLatin1Char('|'));
    for (const QString& path : paths) {
        if (QFileInfo(path).completeBaseName() == name) {
            return path;
        }
    }
    return QString();
}

} // namespace

// What the programs say in the terminal, in the language of each environment. Texts of Qt, such as
// "Options:", depend on what is installed.
class tst_german_terminal : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_folder;

    Answer run(const QStringList& command, const QStringList& variables,
               const QByteArray& input = QByteArray()) const
    {
        QProcessEnvironment environment;
        environment.insert(text("HOME"), m_folder.path());
        for (const char* const name : kept) {
            if (qEnvironmentVariableIsSet(name)) {
                environment.insert(text(name), qEnvironmentVariable(name));
            }
        }
        for (const QString& variable : variables) {
            environment.insert(variable.section(QLatin1Char('='), 0, 0),
                               variable.section(QLatin1Char('='), 1));
        }
        QProcess process;
        process.setProcessEnvironment(environment);
        process.setWorkingDirectory(m_folder.path());
        process.start(program(command.constFirst()), command.mid(1));
        process.write(input);
        process.closeWriteChannel();
        Answer answer;
        if (!process.waitForFinished(60000)) {
            process.kill();
            process.waitForFinished();
        } else if (process.exitStatus() == QProcess::NormalExit) {
            answer.exitCode = process.exitCode();
        }
        answer.output = QString::fromUtf8(unixLines(process.readAllStandardOutput()));
        answer.errors = QString::fromUtf8(unixLines(process.readAllStandardError()));
        return answer;
    }

private Q_SLOTS:
    void helpIsGerman_data()
    {
        QTest::addColumn<QStringList>("command");
        QTest::addColumn<QStringList>("german");
        QTest::addColumn<QStringList>("english");
        QTest::newRow("cadkest")
            << QStringList{text("cadkest"), text("--help")}
            << QStringList{text("Zeigt die Drähte eines Modells in drei Dimensionen."),
                           text("Exit-Code von --non-interactive: 0 das Bild ist fertig"),
                           text("--palette <Name>"), text("Eine Modelldatei (*.nec).")}
            << QStringList{text("Shows a model's wires in three dimensions."),
                           text("Exit code of --non-interactive: 0 the picture was made"),
                           text("--palette <name>"), text("A model file (*.nec).")};
        QTest::newRow("editkest") << QStringList{text("editkest"), text("--help")}
                                  << QStringList{text("Bearbeitet Modelle"), text("[Modell...]"),
                                                 text("--line <Nummer>")}
                                  << QStringList{text("Edits models"), text("[model...]"),
                                                 text("--line <number>")};
        QTest::newRow("postkest") << QStringList{text("postkest"), text("--help-all")}
                                  << QStringList{text("Stehwellenverhältnis"),
                                                 text("[Ergebnis...]"),
                                                 text("Der Titel des ersten Fensters.")}
                                  << QStringList{text("standing wave ratio"), text("[result...]"),
                                                 text("The title of the first window.")};
        QTest::newRow("kestmark")
            << QStringList{text("kestmark"), text("--help")}
            << QStringList{text("Aufruf: kestmark COMMAND\n"),
                           text("erklärt, was die Suite aus der Ausgabe eines Lösers macht\n"),
                           text("Exit-Code: 0 keine Anmerkung")}
            << QStringList{text("Usage: kestmark COMMAND\n"),
                           text("explain what the suite makes of a solver's output\n"),
                           text("Exit code: 0 nothing to remark")};
    }

    void helpIsGerman()
    {
        QFETCH(QStringList, command);
        QFETCH(QStringList, german);
        QFETCH(QStringList, english);
        const QString translated = run(command, {text("KEST_LANGUAGE=de")}).output;
        const QString plain = run(command, {text("KEST_LANGUAGE=en")}).output;
        for (const QString& each : qAsConst(german)) {
            QVERIFY2(simple(translated).contains(each), qPrintable(each + translated));
            QVERIFY2(!simple(plain).contains(each), qPrintable(each + plain));
        }
        for (const QString& each : qAsConst(english)) {
            QVERIFY2(simple(plain).contains(each), qPrintable(each + plain));
            QVERIFY2(!simple(translated).contains(each), qPrintable(each + translated));
        }
    }

    void helpIsInTheLanguageOfTheSystem_data() { helpIsGerman_data(); }

    void helpIsInTheLanguageOfTheSystem()
    {
        SKIP_WITHOUT_LANG();
        QFETCH(QStringList, command);
        const QString translated = run(command, {text("KEST_LANGUAGE=de")}).output;
        const QString plain = run(command, {text("KEST_LANGUAGE=en")}).output;
        QCOMPARE(run(command, {text("LANG=de_DE.UTF-8")}).output, translated);
        QCOMPARE(run(command, {text("LANG=C.UTF-8")}).output, plain);
        QCOMPARE(run(command, {text("LANG=fr_FR.UTF-8")}).output, plain);
        QCOMPARE(run(command, {text("LANG=de_DE.UTF-8"), text("LC_ALL=C")}).output, plain);
    }

    void refusalsAreGerman_data()
    {
        QTest::addColumn<QStringList>("command");
        QTest::addColumn<QString>("errors");
        const QString hint = text("\nMehr dazu mit „%1 --help“.\n");
        const auto row = [&hint](const char* command, const char* problem) {
            const QString name = words(command).constFirst();
            QTest::newRow(command)
                << words(command) << name + text(": ") + text(problem) + hint.arg(name);
        };
        row("cadkest", "es gibt keine Anzeige für das Fenster; --non-interactive macht ein Bild "
                       "ohne Anzeige");
        row("editkest", "es gibt keine Anzeige für das Fenster; --non-interactive prüft Modelle in "
                        "diesem Terminal");
        row("postkest --non-interactive", "kein Ergebnis angegeben");
        row("cadkest --non-interactive --view u a.nec", "„u“ ist keine Ansicht: iso, x, y oder z");
        row("cadkest --non-interactive --size 1x1 a.nec",
            "„1x1“ ist keine Größe: Breite x Höhe, je 16 bis 8192 Pixel");
        row("editkest --line 3", "--line braucht ein Modell");
        row("cadkest --view x a.nec", "--view braucht --non-interactive");
    }

    void refusalsAreGerman()
    {
        QFETCH(QStringList, command);
        QFETCH(QString, errors);
        if (errors.contains(text("keine Anzeige"))) {
            SKIP_ON_WINDOWS("there is always a display");
        }
        const Answer answer = run(command, {text("KEST_LANGUAGE=de"), text("LANG=de_DE.UTF-8")});
        QCOMPARE(answer.errors, errors);
        QCOMPARE(answer.exitCode, 2);
    }

    void commandsAreRefusedInGerman()
    {
        const Answer unknown =
            run(words("kestmark chek"), {text("KEST_LANGUAGE=de"), text("LANG=en_US.UTF-8")});
        QCOMPARE(unknown.exitCode, 2);
        QVERIFY2(unknown.errors.endsWith(text("\nkestmark: unbekannter Befehl „chek“\n")),
                 qPrintable(unknown.errors));
        const Answer option = run(words("kestmark check --all"), {text("KEST_LANGUAGE=de")});
        QVERIFY2(option.errors.endsWith(text("\nkestmark: unbekannte Option „--all“\n")),
                 qPrintable(option.errors));
    }

    void remarksAreGermanAndTheirWordsAreNot()
    {
        const Answer answer = run(words("kestmark check"), {text("KEST_LANGUAGE=de")},
                                  "-*-eror-*-boom\n-*-total-percentage-*-100%\n");
        QCOMPARE(answer.exitCode, 1);
        QVERIFY2(answer.output.contains(text("unknown-marker: -*-eror-*- hat keine Bedeutung")),
                 qPrintable(answer.output));
        QVERIFY2(answer.output.contains(text("; gemeint war wohl -*-error-*-\n")),
                 qPrintable(answer.output));
        QVERIFY2(answer.output.endsWith(text("\n1 Anmerkung\n")), qPrintable(answer.output));
        QVERIFY(answer.output.contains(text("\n2 Zeilen: ")));
    }

    void scriptsReadTheSameInEachLanguage()
    {
        const QByteArray input = "-*-eror-*-boom\nan end";
        const Answer german =
            run(words("kestmark check --json"), {text("KEST_LANGUAGE=de")}, input);
        const Answer english = run(words("kestmark check --json"), {}, input);
        QVERIFY(english.output.contains(text("has no meaning")));
        QCOMPARE(german.output, english.output);
        QCOMPARE(german.exitCode, english.exitCode);
    }

    void unknownLanguageIsReported()
    {
        const Answer answer =
            run(words("kestmark --help"), {text("KEST_LANGUAGE=fr"), text("LANG=de_DE.UTF-8")});
        QCOMPARE(answer.errors,
                 text("kestmark: KEST_LANGUAGE is \"fr\"; there are texts in: en, de\n"));
        QCOMPARE(answer.exitCode, 0);
        QVERIFY(answer.output.startsWith(text("Usage: ")));
        for (const char* const wish : {"KEST_LANGUAGE=en", "KEST_LANGUAGE=en_GB", "KEST_LANGUAGE=C",
                                       "KEST_LANGUAGE=", "LANG=fr_FR.UTF-8"}) {
            const Answer silent = run(words("kestmark --help"), {text(wish)});
            QCOMPARE(silent.errors, QString());
            QCOMPARE(silent.output, answer.output);
        }
    }

private:
    // Help texts are broken into lines.
    static QString simple(const QString& text)
    {
        return text.contains(QLatin1String("COMMAND")) ? text : text.simplified();
    }
};

QTEST_GUILESS_MAIN(tst_german_terminal)
#include "tst_german_terminal.moc"
