#include "WindowTest.h"

#include <GermanTexts.h>
#include <ShownTexts.h>

#include <QMenuBar>
#include <QMessageBox>
#include <QTextBrowser>

#include <csignal>

// The window of a German user: no text in it, or in its dialogs and questions, is English.
class tst_window_german : public WindowTest
{
    Q_OBJECT

private:
    // Names, and texts of Qt and of the library.
    static QStringList allowed()
    {
        return {text("runkest"),    text("prekest"),  text("optkest"),
                text("amrkest"),    text("kestdesk"), text("kestdesk - runkest"),
                text("OK"),         text("Cancel"),   text("Restore Defaults"),
                text("m.nec"),      text("slow.nec"), text("runkest was terminated."),
                text("localhost:2")};
    }

    // What is not in German, and the same for the letters that are pressed with Alt.
    static void check(const QWidget& window)
    {
        const GermanTexts german(allowed());
        QVERIFY(german.size() > 500);
        const QStringList shown = ShownTexts::of(window);
        QVERIFY(shown.size() > 3);
        QStringList foreign;
        std::copy_if(shown.begin(), shown.end(), std::back_inserter(foreign),
                     [&german](const QString& each) { return !german.knows(each); });
        QVERIFY2(foreign.isEmpty(), qPrintable(foreign.join(QLatin1Char('\n'))));
    }

    static void checkAccelerators(const QStringList& texts)
    {
        const QMap<QChar, QStringList> letters = ShownTexts::accelerators(texts);
        for (const QStringList& sharers : letters) {
            QVERIFY2(sharers.size() == 1, qPrintable(sharers.join(text(", "))));
        }
    }

    // Opens a dialog or question by the action, and lets the deed see it.
    bool visit(const char* action, const std::function<void(QDialog& dialog)>& deed) const
    {
        bool isVisited = false;
        const ModalVisitor visitor([&](QDialog& dialog) {
            isVisited = true;
            deed(dialog);
            dialog.reject();
        });
        m_stage->find<QAction>(action)->trigger();
        return isVisited;
    }

    void runToTheEnd(const QByteArray& word, const char* state) const
    {
        m_stage->run(m_stage->model("m.nec", word));
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->cell(0, "Zustand"), text(state), longTime);
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->cell(0, "Nr."), text("1"), longTime);
    }

private Q_SLOTS:
    void initTestCase() { GermanTexts::install(); }
    void init() { setUp(); }
    void cleanup()
    {
        m_stage->endRuns(SIGKILL);
        tearDown();
    }

    void windowAtTheFirstStart() { check(m_stage->window()); }

    void windowWithARunThatFailed()
    {
        runToTheEnd("dies 50 9", "Fehler, SIGKILL");
        check(m_stage->window());
        QVERIFY2(
            m_stage->outcomeText().startsWith(text("runkest von m.nec: Fehler. Die Komponente "
                                                   "wurde durch SIGKILL (Signal 9) beendet: ")),
            qPrintable(m_stage->outcomeText()));
    }

    void windowWithAQueue()
    {
        m_stage->setPreference("runsAtOnce", 1);
        m_stage->close();
        m_stage->open();
        m_stage->run(m_stage->model("slow.nec", "wait"));
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->cell(0, "Zustand"), text("läuft"), longTime);
        m_stage->run(m_stage->model("m.nec", "valid"));
        QTRY_VERIFY(m_stage->find<QLabel>("queueLabel")->text() == text("&Wartende Läufe: 1"));
        check(m_stage->window());
    }

    void dialogs_data()
    {
        QTest::addColumn<QByteArray>("action");
        for (const char* const action :
             {"launchOptionsAction", "machinesFileAction", "preferencesAction"}) {
            QTest::newRow(action) << QByteArray(action);
        }
    }

    void dialogs()
    {
        QFETCH(QByteArray, action);
        QVERIFY(visit(action.constData(), [](QDialog& dialog) { check(dialog); }));
    }

    void questionBeforeARunIsStopped()
    {
        m_stage->askFromTheStart();
        m_stage->run(m_stage->model("slow.nec", "halfway"));
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->cell(0, "Fortschritt"), text("50 %"), longTime);
        QString question;
        QStringList buttons;
        QVERIFY(visit("stopAction", [&](QDialog& dialog) {
            const auto* const box = qobject_cast<QMessageBox*>(&dialog);
            QVERIFY(box != nullptr);
            question = box->text();
            const QList<QAbstractButton*> all = box->buttons();
            for (const QAbstractButton* const button : all) {
                buttons.append(button->text());
            }
            check(dialog);
        }));
        QVERIFY2(question.startsWith(text("slow.nec, 50 %")) &&
                     question.endsWith(text(" stoppen?")),
                 qPrintable(question));
        QVERIFY(buttons.contains(text("&Weiterlaufen lassen")));
        checkAccelerators(buttons);
    }

    void recordOfARun()
    {
        runToTheEnd("ends 50 3", "Fehler, Exit-Code 3");
        m_stage->find<QTableView>("runList")->selectRow(0);
        m_stage->find<QAction>("showRecordAction")->trigger();
        auto* const window = m_stage->find<QDialog>("recordWindow");
        QVERIFY(window != nullptr);
        auto* const tabs = window->findChild<QTabWidget*>(text("recordTabs"));
        QTRY_COMPARE_WITH_TIMEOUT(tabs->count(), 5, longTime);
        QTRY_COMPARE_WITH_TIMEOUT(window->windowTitle(), text("Lauf 1: m.nec"), longTime);
        check(*window);
        const QString summary =
            window->findChild<QTextBrowser*>(text("summaryPage"))->toPlainText();
        for (const char* const part : {"Fehler, Exit-Code 3", "endete mit dem Exit-Code 3",
                                       "0 Fehler, 0 Warnungen, 0 Hinweise", "Erledigt"}) {
            QVERIFY2(summary.contains(text(part)), qPrintable(summary));
        }
    }

    void acceleratorsOfEachMenuDiffer()
    {
        checkAccelerators(textsOf(m_stage->window().menuBar()->actions()));
        const QList<QMenu*> menus = m_stage->window().menuBar()->findChildren<QMenu*>();
        QVERIFY(!menus.isEmpty());
        const QList<QAction*> actions = m_stage->window().menuBar()->actions();
        for (const QAction* const action : actions) {
            Q_EMIT action->menu()->aboutToShow();
            checkAccelerators(textsOf(action->menu()->actions()));
        }
    }

    // Of the window without its menus, whose letters count while they are open, but with the bar.
    void acceleratorsOfTheWindowDiffer()
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
        checkAccelerators(texts);
    }

    void acceleratorsOfTheLaunchOptionsDiffer()
    {
        QVERIFY(visit("launchOptionsAction", [](QDialog& dialog) {
            QStringList buttons;
            const QList<QPushButton*> all = dialog.findChildren<QPushButton*>();
            for (const QPushButton* const button : all) {
                buttons.append(button->text());
            }
            auto* const tabs = dialog.findChild<QTabWidget*>(text("launchOptionsTabs"));
            QCOMPARE(tabs->count(), 5);
            for (int i = 0; i < tabs->count(); ++i) {
                QStringList texts = ShownTexts::of(*tabs->widget(i));
                texts.removeDuplicates();
                checkAccelerators(texts + buttons);
            }
        }));
    }
};

QTEST_MAIN(tst_window_german)
#include "tst_window_german.moc"
