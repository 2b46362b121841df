// SPDX-License-Identifier: MIT
#include "RunEndings.h"

#include <ProcessEnd.h>
#include <ReasonText.h>
#include <RecordedMessage.h>
#include <RunComparison.h>
#include <RunListReport.h>
#include <Translations.h>

// What records keep in English, as users of another language read it.
class tst_reason_text : public QObject
{
    Q_OBJECT

private:
    // What no translation has.
    static bool hasEnglish(const QString& shown)
    {
        static const QRegularExpression words(
            QStringLiteral("\\b(the|was|ended|with|which|could|it|is|of|by|not)\\b"));
        return shown.contains(words);
    }

private Q_SLOTS:
    void initTestCase() { Translations::install(); }

    void textIsTranslatedAndKeepsItsNames_data()
    {
        QTest::addColumn<QString>("english");
        QTest::addColumn<QString>("german");
        const auto add = [](const char* english, const char* german) {
            QTest::newRow(english) << text(english) << text(german);
        };
        add("valid", "gültig");
        add("could not start", "konnte nicht starten");
        add("fault, exit code 3", "Fehler, Exit-Code 3");
        add("fault, SIGKILL", "Fehler, SIGKILL");
        add("fault, signal 40", "Fehler, Signal 40");
        add("fault, exception 0x0000002a", "Fehler, Ausnahme 0x0000002a");
        add("fault, killed", "Fehler, abgebrochen");
        add("was killed (exception 0x0000f291): another program killed it",
            "wurde abgebrochen (Ausnahme 0x0000f291): ein anderes Programm hat sie abgebrochen");
        add("ended by itself, but reported only 50 % of the run as done",
            "endete von selbst, meldete aber nur 50 % des Laufs als erledigt");
        add("was ended by signal 40", "wurde durch Signal 40 beendet");
        add("ended with exit code 127: a program or a library that it needs was not found",
            "endete mit dem Exit-Code 127: ein Programm oder eine Bibliothek, die sie braucht, "
            "wurde nicht gefunden");
        add("/a/m.nec is being run already, by process 7 on this machine",
            "/a/m.nec wird bereits gerechnet, von Prozess 7 auf diesem Rechner");
        add("there is no model /a/valid", "das Modell /a/valid gibt es nicht");
        add("there is no model /a/100%2 %1.nec", "das Modell /a/100%2 %1.nec gibt es nicht");
        add("the model /a/m.nec cannot be run: the path of its folder has 300 characters, and this "
            "system starts no program in a folder whose path has more than 258; move the model to "
            "a shorter path",
            "das Modell /a/m.nec kann nicht gerechnet werden: der Pfad seines Ordners hat 300 "
            "Zeichen, und dieses System startet kein Programm in einem Ordner, dessen Pfad mehr "
            "als 258 hat; verschieben Sie das Modell in einen kürzeren Pfad");
        add("the model cannot be written to /a/%2/%1: No space left",
            "das Modell kann nicht nach /a/%2/%1 geschrieben werden: No space left");
        add("the machines file /a names no host; \"kestdesk machines use-local\" lets it name this "
            "machine, \"kestdesk machines edit\" changes it",
            "die Rechnerdatei /a nennt keinen Host; \"kestdesk machines use-local\" lässt sie "
            "diesen Rechner nennen, „kestdesk machines edit“ ändert sie");
        add("kestdesk, which was asked to end", "kestdesk, das zum Beenden aufgefordert wurde");
    }

    void textIsTranslatedAndKeepsItsNames()
    {
        QFETCH(QString, english);
        QFETCH(QString, german);
        QCOMPARE(ReasonText::shown(english), german);
    }

    void textOfOthersStays_data()
    {
        QTest::addColumn<QString>("words");
        QTest::newRow("nothing") << QString();
        QTest::newRow("a component") << text("2101: unknown card (a.nec, line 12)");
        QTest::newRow("the library") << text("No machines file could be found.");
        QTest::newRow("almost one") << text("validated");
        QTest::newRow("a part") << text("a run was ended by signal 40 and more");
    }

    void textOfOthersStays()
    {
        QFETCH(QString, words);
        QCOMPARE(ReasonText::shown(words), words);
    }

    void reasonOfEachEndIsTranslated_data()
    {
        addRunEndings([](const RunEnding& ending) { return ending.model.count(' ') == 2; });
    }

    void reasonOfEachEndIsTranslated()
    {
        QFETCH(int, row);
        const RunEnding& ending = runEndings().at(row);
        const QList<QByteArray> words = ending.model.split(' ');
        const ProcessEnd end(words.at(0).endsWith("dies"), words.at(2).toInt());
        const RunOutcome outcome =
            RunOutcome::of(end, words.at(1).toInt(), ending.stop != RunEnding::Stop::None);
        const QString reason = ReasonText::shown(outcome.reason());
        QCOMPARE(reason.isEmpty(), outcome.reason().isEmpty());
        QVERIFY2(!hasEnglish(reason), qPrintable(reason));
        QVERIFY(ReasonText::shown(outcome.title()) != outcome.title());
    }

    void meaningOfEachSignalIsTranslated()
    {
        int translated = 0;
        for (int code = 1; code < 256; ++code) {
            for (const bool isCrash : {true, false}) {
                const QString shown = ReasonText::shown(ProcessEnd(isCrash, code).text());
                QVERIFY2(!hasEnglish(shown), qPrintable(shown));
                translated += shown == ProcessEnd(isCrash, code).text() ? 0 : 1;
            }
        }
        QCOMPARE(translated, 2 * 255);
    }

    void eachRecordedWordIsTranslated()
    {
        QStringList words = RunListReport::stateWords();
        using State = RunComparison::File::State;
        for (const State state :
             {State::Same, State::Different, State::OnlyLeft, State::OnlyRight, State::Unknown}) {
            words.append(RunComparison::File::word(state));
        }
        using Type = RecordedMessage::Type;
        for (const Type type : {Type::Output, Type::Percentage, Type::Error, Type::Warning,
                                Type::Notice, Type::File}) {
            words.append(RecordedMessage::word(type));
        }
        for (const QString& word : qAsConst(words)) {
            QVERIFY2(ReasonText::shown(word) != word, qPrintable(word));
        }
    }
};

QTEST_GUILESS_MAIN(tst_reason_text)
#include "tst_reason_text.moc"
