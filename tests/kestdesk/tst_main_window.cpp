// SPDX-License-Identifier: MIT
#include "WindowTest.h"

#include <RunArchive.h>
#include <SmallScreen.h>

#include <HelpClient.h>

#include <common_ComponentsLaunchOptions.h>
#include <common_ServiceOf.h>

#include <QMenuBar>
#include <QScreen>

namespace {

QStringList mnemonicsOf(const QStringList& texts)
{
    QStringList result;
    for (const QString& label : texts) {
        const int place = label.indexOf(QLatin1Char('&'));
        if (place >= 0) {
            result.append(label.mid(place + 1, 1).toLower());
        }
    }
    result.sort();
    return result;
}

} // namespace

// The window's controls, and what they keep among the launch options.
class tst_main_window : public WindowTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    void entriesOfTheMenusOpenTheirDialogs_data()
    {
        QTest::addColumn<QString>("action");
        QTest::addColumn<QString>("title");
        QTest::newRow("launch options")
            << text("launchOptionsAction") << text("Component launch options");
        QTest::newRow("machines file") << text("machinesFileAction") << text("Machines file");
        QTest::newRow("about") << text("aboutAction") << text("About kestdesk");
    }

    void entriesOfTheMenusOpenTheirDialogs()
    {
        QFETCH(QString, action);
        QFETCH(QString, title);
        QStringList titles;
        const ModalVisitor visitor([&titles](QDialog& dialog) {
            titles.append(dialog.windowTitle());
            QTest::keyClick(&dialog, Qt::Key_Escape);
        });
        m_stage->find<QAction>(qPrintable(action))->trigger();
        QCOMPARE(titles, QStringList(title));
    }

    void windowAtItsFirstStartIsNotMaximisedAndInTheMiddle()
    {
        const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
        QVERIFY(!m_stage->window().isMaximized());
        QVERIFY(screen.contains(m_stage->window().geometry()));
        const QPoint off = m_stage->window().geometry().center() - screen.center();
        QVERIFY2(qAbs(off.x()) <= 40 && qAbs(off.y()) <= 40,
                 qPrintable(QStringLiteral("%1 %2").arg(off.x()).arg(off.y())));
    }

    void dialogsFitASmallScreen_data()
    {
        QTest::addColumn<QString>("action");
        for (const char* const name :
             {"launchOptionsAction", "machinesFileAction", "preferencesAction", "aboutAction",
              "deleteRunsAction", "runAgainAction", "stopAction", "quitAction"}) {
            QTest::newRow(name) << text(name);
        }
    }

    // Each action has a run to ask about.
    void dialogsFitASmallScreen()
    {
        QFETCH(QString, action);
        m_stage->askFromTheStart();
        m_stage->run(m_stage->model("m.nec", "fault"));
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(), text("fault, exit code 3"), longTime);
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->cell(0, "No."), text("1"), longTime);
        const RunArchive archive(m_stage->desk().path("user/runs"));
        QTRY_VERIFY_WITH_TIMEOUT(archive.record(1) && archive.record(1)->hasEnded(), longTime);
        startWaitingRun("wait", "a model with a name that is somewhat longer than usual.nec");
        m_stage->model("m.nec", "valid"); // changed since
        auto* const list = m_stage->find<QTableView>("runList");
        list->selectRow(m_stage->rowOf(0));
        QTRY_VERIFY_WITH_TIMEOUT(m_stage->find<QAction>(qPrintable(action))->isEnabled(), longTime);
        QStringList found;
        {
            const ModalVisitor visitor([&found](QDialog& dialog) {
                found.append(SmallScreen::excess(dialog));
                dialog.reject();
            });
            m_stage->find<QAction>(qPrintable(action))->trigger();
            QTRY_COMPARE_WITH_TIMEOUT(found.size(), 1, longTime);
        }
        QCOMPARE(found, QStringList(QString()));
        m_stage->endRuns(SIGKILL);
        QTRY_VERIFY_WITH_TIMEOUT(m_stage->state(1).startsWith(text("fault")), longTime);
    }

    void windowsFitASmallScreen()
    {
        QVERIFY(m_stage->find<QWidget>("welcomePanel")->isVisible());
        QCOMPARE(SmallScreen::excess(m_stage->window()), QString());
        QStringList models;
        for (const char* const name : {"a.nec", "b.nec", "c.nec"}) {
            models.append(m_stage->model(name, "valid"));
        }
        m_stage->window().openModels(models); // which wait
        m_stage->run(m_stage->model("m.nec", "errs 2101: unknown card 'QX' (m.nec, line 1)"));
        QTRY_VERIFY_WITH_TIMEOUT(m_stage->find<QPushButton>("runCureButton")->isVisible(),
                                 longTime);
        QVERIFY(m_stage->find<QWidget>("queuePanel")->isVisible());
        QCOMPARE(SmallScreen::excess(m_stage->window()), QString());
        QCOMPARE(SmallScreen::excess(*m_stage->dialogs().constFirst()), QString());
        m_stage->find<QAction>("showRecordAction")->trigger();
        auto* const record = m_stage->find<QDialog>("recordWindow");
        QTRY_VERIFY_WITH_TIMEOUT(record->findChild<QTableView*>(text("messageTable")), longTime);
        QCOMPARE(SmallScreen::excess(*record), QString());
    }

    void aboutTellsTheVersionAndTheInstallation()
    {
        QCoreApplication::setApplicationVersion(text("1.2.3"));
        const BoxAnswerer reader(WindowStage::pressing(Qt::Key_Return));
        m_stage->find<QAction>("aboutAction")->trigger();
        QCOMPARE(reader.texts.size(), 1);
        QVERIFY(reader.texts.constFirst().startsWith(text("kestdesk 1.2.3\n")));
        QVERIFY(reader.texts.constFirst().contains(
            QDir::toNativeSeparators(m_stage->desk().path("home"))));
    }

    void boxesFollowTheLaunchOptions()
    {
        m_stage->find<QComboBox>("componentBox")->setCurrentText(text("optkest"));
        const ModalVisitor user([](QDialog& dialog) {
            dialog.findChild<QCheckBox*>(text("RunRemote"))->click();
            dialog.findChild<QCheckBox*>(text("FarmOut"))->click();
            dialog.findChild<QPushButton*>(text("ok"))->click();
        });
        m_stage->press(Qt::Key_L, Qt::ControlModifier);
        QVERIFY(!m_stage->find<QCheckBox>("parallelBox")->isChecked());
        QVERIFY(m_stage->find<QCheckBox>("remoteBox")->isChecked());
        QVERIFY(m_stage->find<QAction>("farmOutAction")->isChecked());
        QCOMPARE(m_stage->outcomeText(), QString());
    }

    void choiceOfThisSessionOutlivesALookAtTheLaunchOptions()
    {
        const auto lock = common_ComponentsLaunchOptions::create(ReadWriteAccess);
        const BoxAnswerer reader(WindowStage::pressing(Qt::Key_Escape));
        m_stage->find<QCheckBox>("parallelBox")->click();
        m_stage->press(Qt::Key_L, Qt::ControlModifier);
        QVERIFY(reader.texts.size() > 1);
        QVERIFY(m_stage->find<QCheckBox>("parallelBox")->isChecked());
    }

    void choiceThatCannotBeWrittenCountsForThisSession()
    {
        QVERIFY(QDir().mkpath(m_stage->desk().path("user/kest.ini"))); // in the file's place
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(text("kest.ini")));
        m_stage->find<QCheckBox>("parallelBox")->click();
        QCOMPARE(m_stage->outcomeText(), text("This choice counts for this session only."));
        QVERIFY(m_stage->find<QCheckBox>("parallelBox")->isChecked());
    }

    void choiceIsKeptAmongTheLaunchOptions()
    {
        m_stage->find<QComboBox>("componentBox")->setCurrentText(text("optkest"));
        m_stage->find<QCheckBox>("parallelBox")->click();
        const QString file = m_stage->desk().path("user/kest.ini");
        QCOMPARE(QSettings(file, QSettings::IniFormat).value(text("options/RunParallel")).toBool(),
                 true);
        m_stage->find<QAction>("farmOutAction")->trigger();
        const QSettings settings(file, QSettings::IniFormat);
        QCOMPARE(settings.value(text("options/RunParallel")).toBool(), true);
        QCOMPARE(settings.value(text("options/RunRemote")).toBool(), false);
        QCOMPARE(settings.value(text("options/FarmOut")).toBool(), true);
        m_stage->open();
        QVERIFY(m_stage->find<QCheckBox>("parallelBox")->isChecked());
        QVERIFY(!m_stage->find<QCheckBox>("remoteBox")->isChecked());
        QVERIFY(m_stage->find<QAction>("farmOutAction")->isChecked());
    }

    void choiceCountsForThisSessionWhileOptionsAreLocked()
    {
        writeFile(m_stage->desk().path("user/machines.kest"), "localhost:2\n");
        auto lock = common_ComponentsLaunchOptions::create(ReadWriteAccess);
        QVERIFY(lock);
        BoxAnswerer reader(WindowStage::pressing(Qt::Key_Escape));
        auto* const parallel = m_stage->find<QCheckBox>("parallelBox");
        parallel->click();
        QCOMPARE(reader.texts.size(), 1);
        QCOMPARE(m_stage->outcomeText(), text("This choice counts for this session only."));
        parallel->click();
        parallel->click();
        QCOMPARE(reader.texts.size(), 1);
        QVERIFY(parallel->isChecked());
        m_stage->run(m_stage->model("m.nec", "valid"));
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(), text("valid"), longTime);
        QVERIFY(contentOf(m_stage->desk().path("models/m.nec.seen")).contains("--machines-file"));

        lock.reset();
        m_stage->find<QCheckBox>("remoteBox")->click();
        QCOMPARE(m_stage->outcomeText(), QString());
        const QSettings settings(m_stage->desk().path("user/kest.ini"), QSettings::IniFormat);
        QCOMPARE(settings.value(text("options/RunParallel")).toBool(), true);
        QCOMPARE(settings.value(text("options/RunRemote")).toBool(), true);
    }

    void boxesHaveTheNamesThatMessagesUse()
    {
        QCOMPARE(m_stage->find<QWidget>("runLaunchGroup")->property("title").toString(),
                 text("Run/launch"));
        QCOMPARE(m_stage->find<QCheckBox>("parallelBox")->text().remove(QLatin1Char('&')),
                 text("Parallel"));
        QCOMPARE(m_stage->find<QCheckBox>("remoteBox")->text().remove(QLatin1Char('&')),
                 text("Remote"));
        const QAction* const farmOut = m_stage->find<QAction>("farmOutAction");
        QCOMPARE(farmOut->text().remove(QLatin1Char('&')), text("Farm out by OPTKEST"));
        const auto* const menu = qobject_cast<QMenu*>(farmOut->associatedWidgets().value(0));
        QVERIFY(menu);
        QCOMPARE(menu->title().remove(QLatin1Char('&')), text("Run"));
    }

    void noTwoControlsShareAKey()
    {
        QStringList together = textsOf(m_stage->window().menuBar()->actions());
        for (const char* const part : {"runPanel", "queuePanel"}) {
            const QList<QAbstractButton*> buttons =
                m_stage->find<QWidget>(part)->findChildren<QAbstractButton*>();
            for (const QAbstractButton* const button : buttons) {
                together.append(button->text());
            }
        }
        const QList<QLabel*> labels = m_stage->window().centralWidget()->findChildren<QLabel*>();
        for (const QLabel* const label : labels) {
            together.append(label->text());
        }
        QStringList keys = mnemonicsOf(together);
        QCOMPARE(keys.size(), 15);
        QCOMPARE(keys.removeDuplicates(), 0);

        const QList<QAction*> menus = m_stage->window().menuBar()->actions();
        QCOMPARE(menus.size(), 5);
        for (const QAction* const menu : menus) {
            QStringList ofMenu = mnemonicsOf(textsOf(menu->menu()->actions()));
            QVERIFY(!ofMenu.isEmpty());
            QCOMPARE(ofMenu.removeDuplicates(), 0);
        }
    }

    void keysLeadToTheControls()
    {
        m_stage->press(Qt::Key_D, Qt::AltModifier);
        QVERIFY(m_stage->find<QLineEdit>("modelEdit")->hasFocus());
        m_stage->press(Qt::Key_C, Qt::AltModifier);
        QVERIFY(m_stage->find<QComboBox>("componentBox")->hasFocus());
        m_stage->press(Qt::Key_T, Qt::AltModifier);
        QVERIFY(m_stage->find<QTableView>("runList")->hasFocus());
        m_stage->press(Qt::Key_P, Qt::AltModifier);
        QTRY_VERIFY(m_stage->find<QCheckBox>("parallelBox")->isChecked());
    }

    void controlsAreNamedForThoseWhoDoNotSee()
    {
        for (const char* const name :
             {"modelEdit", "componentBox", "runFilterEdit", "runStateBox", "runList"}) {
            QVERIFY2(!m_stage->find<QWidget>(name)->accessibleName().isEmpty(), name);
        }
        for (const char* const name : {"parallelBox", "remoteBox"}) {
            const auto* const box = m_stage->find<QCheckBox>(name);
            QVERIFY2(!box->accessibleDescription().isEmpty(), name);
            QCOMPARE(box->toolTip(), box->accessibleDescription());
        }
    }

    void everythingIsReachedByTheTabKey()
    {
        startWaitingRun();
        m_stage->find<QTableView>("runList")->setFocus();
        QStringList reached;
        for (int i = 0; i < 11; ++i) {
            m_stage->pressFocused(Qt::Key_Tab);
            reached.append(m_stage->window().focusWidget()->objectName());
        }
        QCOMPARE(reached,
                 QStringList({text("modelEdit"), text("openButton"), text("componentBox"),
                              text("parallelBox"), text("remoteBox"), text("runButton"),
                              text("stopButton"), text("runFilterEdit"), text("runStateBox"),
                              text("groupRunsButton"), text("runList")}));
    }

    void helpHasAPageForTheWindowAndOneForItsRuns()
    {
        const auto* const help = dynamic_cast<HelpClient*>(GET_SERVICE(common_HelpClient));
        QVERIFY(help);
        QCOMPARE(help->pageOf(m_stage->find<QTableView>("runList")), text("kestdesk"));
        startWaitingRun();
        const common_KestProcessDialog* const dialog = m_stage->dialogs().constFirst();
        QCOMPARE(help->pageOf(WindowStage::inDialog<QPushButton>(dialog, "buttonStop")),
                 text("run-window"));
    }

    void fitsASmallScreen()
    {
        const QSize least = m_stage->window().minimumSizeHint();
        QVERIFY2(least.width() <= 640 && least.height() <= 400,
                 qPrintable(text("%1 x %2").arg(least.width()).arg(least.height())));
    }
};

QTEST_MAIN(tst_main_window)

#include "tst_main_window.moc"
