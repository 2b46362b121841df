// SPDX-License-Identifier: MIT
#include "GermanWindowTest.h"

#include <QLineEdit>
#include <QMenuBar>
#include <QTextBrowser>

using State = RunRecord::State;

// The window of a German user in its states, and the windows of records: no text is English.
class tst_window_german : public GermanWindowTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { install(); }
    void init() { setUpGerman(); }
    void cleanup() { tearDownGerman(); }

    void englishWouldBeFound()
    {
        QLabel label(text("Open run"));
        label.setToolTip(text("kestdesk von m.nec: valid"));
        label.setAccessibleName(text("Läufe"));
        label.setStatusTip(text("m.nec"));
        QCOMPARE(foreign(label), text("kestdesk von m.nec: valid\nOpen run"));
    }

    void firstStart()
    {
        QVERIFY(m_stage->find<QWidget>("welcomePanel")->isVisible());
        QCOMPARE(foreign(m_stage->window()), QString());
        QCOMPARE(textsOf(m_stage->window().menuBar()->actions()).constFirst(), text("&Datei"));
    }

    void openedModel()
    {
        m_stage->window().openModel(m_stage->model("m.nec", "valid"));
        QCOMPARE(foreign(m_stage->window()), QString());
    }

    void runsOfThisSession()
    {
        runUntil("gültig", "files");
        runUntil(qUtf8Printable(Processes::killed().stateInGerman), "dies 50 9", "n.nec");
        QVERIFY2(
            m_stage->outcomeText().startsWith(text("runkest von n.nec: Fehler. Die Komponente ") +
                                              Processes::killed().reasonInGerman),
            qPrintable(m_stage->outcomeText()));
        runUntil("läuft", "halfway", "o.nec");
        QCOMPARE(foreign(m_stage->window()), QString());
        m_stage->pressStop();
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->cell(2, "Zustand"), text("gestoppt"), longTime);
        QCOMPARE(foreign(m_stage->window()), QString());
    }

    void runsOfEarlierSessions_data()
    {
        QTest::addColumn<int>("state");
        QTest::addColumn<QString>("shown");
        // clang-format off
        QTest::newRow("valid")       << int(State::Valid)       << text("gültig");
        QTest::newRow("fault")       << int(State::Fault)       << text("Fehler, Exit-Code 3");
        QTest::newRow("stopped")     << int(State::Stopped)     << text("gestoppt");
        QTest::newRow("interrupted") << int(State::Interrupted) << text("unterbrochen");
        QTest::newRow("not started") << int(State::NotStarted)  << text("nicht gestartet");
        // clang-format on
    }

    void runsOfEarlierSessions()
    {
        QFETCH(int, state);
        QFETCH(QString, shown);
        m_records->add("m.nec", State(state),
                       state == int(State::Fault) ? "fault, exit code 3" : "");
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->runCount(), 1, longTime);
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->cell(0, "Zustand"), shown, longTime);
        selectRun();
        QCOMPARE(foreign(m_stage->window()), QString());
    }

    void damagedRecord()
    {
        const int number = m_records->add("m.nec", State::Valid);
        writeFile(m_records->archive().record(number)->folder + text("/run.json"), "{\"sta");
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->runCount(), 1, longTime);
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->cell(0, "Zustand"), text("beschädigt"), longTime);
        selectRun();
        QCOMPARE(foreign(m_stage->window()), QString());
    }

    void waitingRuns()
    {
        m_stage->setPreference("runsAtOnce", 1);
        m_stage->close();
        m_stage->open();
        runUntil("läuft", "wait");
        m_stage->run(m_stage->model("n.nec", "valid"));
        QTRY_COMPARE(m_stage->find<QLabel>("queueLabel")->text(), text("&Wartende Läufe: 1"));
        QCOMPARE(foreign(m_stage->window()), QString());
        m_stage->find<QListWidget>("queueList")->selectAll();
        m_stage->find<QPushButton>("holdButton")->click();
        QVERIFY(m_stage->find<QListWidget>("queueList")
                    ->item(0)
                    ->text()
                    .endsWith(text("zurückgestellt")));
        QCOMPARE(foreign(m_stage->window()), QString());
    }

    void offeredCures_data()
    {
        QTest::addColumn<QByteArray>("message");
        QTest::addColumn<QString>("button");
        // clang-format off
        QTest::newRow("card")   << QByteArray("2101: unknown card 'QX' (m.nec, line 1)") << text("Karte öff&nen");
        // clang-format on
    }

    void offeredCures()
    {
        QFETCH(QByteArray, message);
        QFETCH(QString, button);
        runUntil("Fehler, Exit-Code 3", "errs " + message);
        auto* const cure = m_stage->find<QPushButton>("runCureButton");
        QTRY_VERIFY_WITH_TIMEOUT(cure->isVisible(), longTime);
        QCOMPARE(cure->text(), button);
        QCOMPARE(foreign(m_stage->window()), QString());
    }

    void record()
    {
        runUntil("gültig", "files");
        runUntil("Fehler, Exit-Code 3", "ends 50 3");
        QTRY_VERIFY_WITH_TIMEOUT(
            m_records->archive().record(2) && m_records->archive().record(2)->hasEnded(), longTime);
        selectRun();
        m_stage->find<QAction>("showRecordAction")->trigger();
        auto* const window = m_stage->find<QDialog>("recordWindow");
        QVERIFY(window != nullptr);
        auto* const tabs = window->findChild<QTabWidget*>(text("recordTabs"));
        QTRY_COMPARE_WITH_TIMEOUT(tabs->count(), 5, longTime);
        QTRY_COMPARE_WITH_TIMEOUT(window->windowTitle(), text("Lauf 2: m.nec"), longTime);
        const auto* const again = window->findChild<QPushButton*>(text("resumeRecordButton"));
        QTRY_VERIFY_WITH_TIMEOUT(!again->toolTip().isEmpty(), longTime);
        tabs->setCurrentIndex(4);
        const auto* const differences = window->findChild<QTextBrowser*>(text("differencesText"));
        QTRY_VERIFY_WITH_TIMEOUT(differences->toPlainText().contains(text("Exit-Code")), longTime);
        QCOMPARE(foreign(*window), QString());
        const QString summary =
            window->findChild<QTextBrowser*>(text("summaryPage"))->toPlainText();
        QVERIFY2(summary.contains(text("runkest endete mit dem Exit-Code 3.")),
                 qPrintable(summary));
    }

    void lettersOfEachMenuDiffer()
    {
        (void)foreign(m_stage->window()); // fills the menus
        QVERIFY(m_stage->window().findChildren<QMenu*>().size() > 4);
        QCOMPARE(ShownTexts::ambiguousMenus(m_stage->window()), QStringList());
    }

    // Without the menus, whose letters count while they are open, but with their bar.
    void lettersOfTheWindowDiffer()
    {
        QStringList texts = textsOf(m_stage->window().menuBar()->actions());
        const QList<QWidget*> widgets = m_stage->window().centralWidget()->findChildren<QWidget*>();
        for (const QWidget* const widget : widgets) {
            if (const auto* const label = qobject_cast<const QLabel*>(widget)) {
                texts.append(label->text());
            } else if (const auto* const button = qobject_cast<const QAbstractButton*>(widget)) {
                texts.append(button->text());
            }
        }
        QVERIFY(texts.size() > 10);
        QCOMPARE(sharedLetters(texts), QStringList());
    }
};

QTEST_MAIN(tst_window_german)
#include "tst_window_german.moc"
