// SPDX-License-Identifier: MIT
#include "GermanWindowTest.h"

#include <ProgramName.h>

#include <QMessageBox>
#include <QTabWidget>

using State = RunRecord::State;

// The dialogs and questions of a German user: no text is English.
class tst_dialogs_german : public GermanWindowTest
{
    Q_OBJECT

private:
    struct Question
    {
        QString text;
        QStringList buttons;
        QString foreign;
    };

    // What comes up while something is done.
    template <typename Deed>
    QVector<Question> questionsOf(Deed deed) const
    {
        QVector<Question> questions;
        const BoxAnswerer boxes([&](QMessageBox& box) {
            Question question{box.text(), {}, foreign(box)};
            const QList<QAbstractButton*> buttons = box.buttons();
            for (const QAbstractButton* const button : buttons) {
                question.buttons.append(button->text());
            }
            questions.append(question);
            box.reject();
        });
        deed();
        const bool isAsked = QTest::qWaitFor([&] { return !questions.isEmpty(); }, longTime);
        return isAsked ? questions : QVector<Question>();
    }

    // That there is one question, which begins like that, and is in German.
    void check(const QVector<Question>& questions, const char* beginning) const
    {
        QCOMPARE(questions.size(), 1);
        const Question& question = questions.constFirst();
        QVERIFY2(question.text.startsWith(text(beginning)), qPrintable(question.text));
        QCOMPARE(question.foreign, QString());
        QCOMPARE(sharedLetters(question.buttons), QStringList());
    }

    void trigger(const char* action) const { m_stage->find<QAction>(action)->trigger(); }

    void addRun(State state)
    {
        m_records->add("m.nec", state);
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->runCount(), 1, longTime);
        selectRun();
    }

private Q_SLOTS:
    void initTestCase() { install(); }
    void init() { setUpGerman(); }
    void cleanup() { tearDownGerman(); }

    void dialogs_data()
    {
        QTest::addColumn<QByteArray>("action");
        QTest::addColumn<QString>("title");
        // clang-format off
        QTest::newRow("options")     << QByteArray("launchOptionsAction") << text("Startoptionen der Komponenten");
        QTest::newRow("machines")    << QByteArray("machinesFileAction")  << text("Rechnerdatei");
        QTest::newRow("preferences") << QByteArray("preferencesAction")   << text("Einstellungen");
        QTest::newRow("about")       << QByteArray("aboutAction")         << text("Über kestdesk");
        // clang-format on
    }

    void dialogs()
    {
        QFETCH(QByteArray, action);
        QFETCH(QString, title);
        QString found;
        QVERIFY(visit(action.constData(), [&](QDialog& dialog) {
            found = foreign(dialog);
            QCOMPARE(dialog.windowTitle(), title);
        }));
        QCOMPARE(found, QString());
    }

    void findingsInTheMachinesFile()
    {
        writeFile(m_stage->desk().path("user/machines.kest"),
                  "localhost:x\nlocalhost:2\nlocalhost:1\n");
        QString found;
        QVERIFY(visit("machinesFileAction", [&](QDialog& dialog) { found = foreign(dialog); }));
        QCOMPARE(found, QString());
    }

    void defaultsAreRestoredAfterAQuestion()
    {
        QVector<Question> questions;
        visit("launchOptionsAction", [&](QDialog& dialog) {
            questions = questionsOf(
                [&dialog] { dialog.findChild<QPushButton*>(text("restoreDefaults"))->click(); });
        });
        check(questions, "Möchten Sie alle Startoptionen durch");
    }

    void lettersOfEachTabOfTheLaunchOptionsDiffer()
    {
        QStringList shared;
        int pages = 0;
        QVERIFY(visit("launchOptionsAction", [&](QDialog& dialog) {
            QStringList buttons;
            const auto all = dialog.findChild<QDialogButtonBox*>()->buttons();
            for (const QAbstractButton* const button : all) {
                buttons.append(button->text());
            }
            const auto* const tabs = dialog.findChild<QTabWidget*>(text("launchOptionsTabs"));
            for (; pages < tabs->count(); ++pages) {
                shared += sharedLetters(ShownTexts::of(*tabs->widget(pages)) + buttons);
            }
        }));
        QCOMPARE(pages, 5);
        QCOMPARE(shared, QStringList());
    }

    void stoppingARun()
    {
        m_stage->askFromTheStart();
        runUntil("läuft", "halfway");
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->cell(0, "Fortschritt"), text("50 %"), longTime);
        const auto questions = questionsOf([this] { trigger("stopAction"); });
        check(questions, "m.nec, 50 %");
        QVERIFY(questions.constFirst().buttons.contains(text("&Weiterlaufen lassen")));
    }

    void closingWithARun()
    {
        runUntil("läuft", "wait");
        check(questionsOf([this] { m_stage->window().close(); }), "m.nec, 0 %");
    }

    void closingWithRuns()
    {
        runUntil("läuft", "wait");
        runUntil("läuft", "wait", "n.nec");
        check(questionsOf([this] { m_stage->window().close(); }), "Diese 2 Läufe stoppen");
    }

    void deletingARecord()
    {
        addRun(State::Valid);
        check(questionsOf([this] { trigger("deleteRunsAction"); }),
              "Aufzeichnung dieses Laufs löschen?");
    }

    void runningAChangedModelAgain()
    {
        runUntil("gültig", "valid");
        m_stage->model("m.nec", "silent");
        selectRun();
        check(questionsOf([this] { trigger("runAgainAction"); }),
              "Das Modell m.nec hat sich seit Lauf 1 geändert.");
    }

    void runningAMissingModelAgain()
    {
        runUntil("gültig", "valid");
        QVERIFY(QFile::remove(m_stage->desk().path("models/m.nec")));
        selectRun();
        check(questionsOf([this] { trigger("runAgainAction"); }),
              "Das Modell m.nec ist nicht mehr vorhanden.");
    }

    void runningWithoutAHost()
    {
        writeFile(m_stage->desk().path("user/machines.kest"), "localhost:2\nb:1\n");
        m_stage->find<QCheckBox>("parallelBox")->click();
        runUntil("Fehler, Exit-Code 3", "errs the host 'b' cannot be reached any more by ssh");
        auto* const cure = m_stage->find<QPushButton>("runCureButton");
        QTRY_VERIFY_WITH_TIMEOUT(cure->isVisible(), longTime);
        check(questionsOf([cure] { cure->click(); }), "Lauf 1 wird genau so wiederholt");
    }

    void machinesFileWithoutAHost()
    {
        writeFile(m_stage->desk().path("user/machines.kest"), "# nothing\n");
        m_stage->find<QCheckBox>("parallelBox")->click();
        const auto questions =
            questionsOf([this] { m_stage->run(m_stage->model("m.nec", "valid")); });
        check(questions, "Die Rechnerdatei ");
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->cell(0, "Zustand"), text("nicht gestartet"), longTime);
        QCOMPARE(foreign(m_stage->window()), QString());
    }

    void missingComponent()
    {
        QVERIFY(QFile::remove(m_stage->program("runkest") + text(ProgramName::suffix())));
        check(questionsOf([this] { m_stage->run(m_stage->model("m.nec", "valid")); }),
              "Die Komponente runkest gibt es nicht in ");
    }

    void missingModel()
    {
        const QString model = m_stage->desk().path("models/none.nec");
        const auto questions = questionsOf([this, &model] { m_stage->run(model); });
        check(questions, "Das Modell ");
        QCOMPARE(QDir::fromNativeSeparators(questions.constFirst().text),
                 text("Das Modell %1 gibt es nicht.").arg(model));
    }
};

QTEST_MAIN(tst_dialogs_german)
#include "tst_dialogs_german.moc"
