#include "WindowStage.h"

#include <common_ComponentsLaunchOptions.h>

#include <QDropEvent>
#include <QMenuBar>
#include <QMimeData>
#include <QScreen>
#include <QTabWidget>
#include <QTextEdit>

#include <csignal>

namespace {

constexpr int longTime = 60000; // ms, on a machine with much to do

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

QStringList textsOfActions(const QList<QAction*>& actions)
{
    QStringList result;
    for (const QAction* const action : actions) {
        result.append(action->text());
    }
    return result;
}

} // namespace

class tst_main_window : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<WindowStage> m_stage;

    void startWaitingRun(const char* word = "wait", const char* name = "m.nec") const
    {
        const int row = m_stage->runCount();
        m_stage->run(m_stage->model(name, word));
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(row), text("running"), longTime);
        const common_KestProcessDialog* const dialog = m_stage->dialogs().constLast();
        auto* const output = qobject_cast<QTextEdit*>(dialog->findChild<QTabWidget*>()->widget(0));
        QTRY_VERIFY_WITH_TIMEOUT(output->toPlainText().contains(text("up")), longTime);
    }

    QStringList recentTexts() const
    {
        auto* const menu = m_stage->find<QMenu>("recentMenu");
        Q_EMIT menu->aboutToShow();
        return textsOfActions(menu->actions());
    }

    QStringList temporaryFiles() const
    {
        return QDir(m_stage->desk().path("user")).entryList({text("gui_tmp_machfile*")});
    }

    bool drop(QWidget* target, const QMimeData& data) const
    {
        const QPoint place = target->rect().center();
        QDragEnterEvent enter(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(target, &enter);
        if (!enter.isAccepted()) {
            return false;
        }
        QDropEvent event(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(target, &event);
        return true;
    }

private Q_SLOTS:
    void init()
    {
        m_stage.reset(); // a failed test left it
        m_stage = std::make_unique<WindowStage>();
        m_stage->open();
    }

    void cleanup()
    {
        m_stage->close();
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->desk().processes(), QStringList(), 10000);
        QCOMPARE(temporaryFiles(), QStringList());
        m_stage.reset();
    }

#ifdef KEST_SUITE
    void modelIsRunByTheRealSolver()
    {
        qputenv("KEST_HOME", KEST_SUITE);
        const QString model = m_stage->desk().path("models/dipole.nec");
        QVERIFY(QFile::copy(text(KEST_SUITE "/models/dipole.nec"), model));
        m_stage->run(model);
        QCOMPARE(m_stage->dialogs().size(), 1);
        const common_KestProcessDialog* const dialog = m_stage->dialogs().constFirst();
        QVERIFY(dialog->isVisible());
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(), text("valid"), longTime);
        auto* const ok = WindowStage::inDialog<QPushButton>(dialog, "buttonOk");
        QCOMPARE(ok->property("squishValue").toString(), text("valid"));
        QCOMPARE(m_stage->cell(0, "Model"), text("dipole.nec"));
        QCOMPARE(m_stage->cell(0, "Component"), text("runkest"));
        QCOMPARE(m_stage->cell(0, "Progress"), text("100 %"));
        QCOMPARE(m_stage->cell(0, "Remaining"), QString());
        QCOMPARE(m_stage->outcomeText(), text("runkest of dipole.nec: valid"));
        QCOMPARE(m_stage->window().windowTitle(), text("dipole.nec - kestdesk"));
        QVERIFY(QFile::exists(m_stage->desk().path("models/dipole.csv")));
    }

    void faultOfAModelIsShown()
    {
        qputenv("KEST_HOME", KEST_SUITE);
        const QString model = m_stage->desk().path("models/mistakes.nec");
        QVERIFY(QFile::copy(text(KEST_SUITE "/models/mistakes.nec"), model));
        m_stage->run(model);
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(), text("fault"), longTime);
        const common_KestProcessDialog* const dialog = m_stage->dialogs().constFirst();
        auto* const ok = WindowStage::inDialog<QPushButton>(dialog, "buttonOk");
        QCOMPARE(ok->property("squishValue").toString(), text("fault"));
    }

    void variablesThatPrekestPrintsAreOutput()
    {
        m_stage->setOption("Prekest.ExportVariablesToStdOut", text("true"));
        qputenv("KEST_HOME", KEST_SUITE);
        const QString model = m_stage->desk().path("models/tune.nec");
        QVERIFY(QFile::copy(text(KEST_SUITE "/models/tune.nec"), model));
        m_stage->find<QComboBox>("componentBox")->setFocus();
        QTest::keyClicks(m_stage->find<QComboBox>("componentBox"), text("p"));
        QCOMPARE(m_stage->find<QComboBox>("componentBox")->currentText(), text("prekest"));
        m_stage->run(model);
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(), text("valid"), longTime);
        const common_KestProcessDialog* const dialog = m_stage->dialogs().constFirst();
        auto* const output = qobject_cast<QTextEdit*>(dialog->findChild<QTabWidget*>()->widget(0));
        QVERIFY2(output->toPlainText().contains(text("LENGTH = 0.5")),
                 qPrintable(output->toPlainText()));
    }
#endif

    void runIsStoppedWhenTheUserAgrees()
    {
        startWaitingRun();
        {
            BoxAnswerer unwilling(WindowStage::pressing(Qt::Key_Escape));
            m_stage->pressStop();
            QCOMPARE(unwilling.texts,
                     QStringList(text("Are you sure you want to stop runkest of m.nec?")));
        }
        QCOMPARE(m_stage->state(), text("running"));
        QVERIFY(!m_stage->desk().processes().isEmpty());

        const BoxAnswerer willing(WindowStage::pressing(Qt::Key_Return));
        QTest::mouseClick(m_stage->find<QPushButton>("stopButton"), Qt::LeftButton);
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(), text("stopped"), longTime);
        QCOMPARE(m_stage->outcomeText(), text("runkest of m.nec: stopped"));
        QVERIFY(!m_stage->find<QPushButton>("stopButton")->isEnabled());
        QVERIFY(!m_stage->find<QAction>("stopAction")->isEnabled());
    }

    void runThatIsStoppedInItsDialogIsStoppedInTheList()
    {
        startWaitingRun();
        const BoxAnswerer willing(WindowStage::pressing(Qt::Key_Return));
        common_KestProcessDialog* const dialog = m_stage->dialogs().constFirst();
        QTest::mouseClick(WindowStage::inDialog<QPushButton>(dialog, "buttonStop"), Qt::LeftButton);
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(), text("stopped"), longTime);
    }

    void outcomesAreInWords_data()
    {
        QTest::addColumn<QByteArray>("word");
        QTest::addColumn<QString>("state");
        QTest::newRow("valid") << QByteArray("valid") << text("valid");
        QTest::newRow("exit code") << QByteArray("fault") << text("fault");
        QTest::newRow("crash") << QByteArray("crash") << text("fault");
    }

    void outcomesAreInWords()
    {
        QFETCH(QByteArray, word);
        QFETCH(QString, state);
        m_stage->run(m_stage->model("m.nec", word));
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(), state, longTime);
        QCOMPARE(m_stage->outcomeText(), text("runkest of m.nec: ") + state);
    }

    void runThatDoesNotStopIsShownSo()
    {
        startWaitingRun("stubborn");
        const BoxAnswerer willing(WindowStage::pressing(Qt::Key_Return));
        m_stage->pressStop();
        QCOMPARE(m_stage->state(), text("stopping, still running"));
        QVERIFY(WindowStage::quits([this] {
            m_stage->window().quit();
            m_stage->window().quit();
        }));
    }

    void severalRunsGoAtOnce()
    {
        startWaitingRun("wait", "a.nec");
        startWaitingRun("wait", "b.nec");
        m_stage->run(m_stage->model("c.nec", "valid"));
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(2), text("valid"), longTime);
        QCOMPARE(m_stage->state(0), text("running"));
        QCOMPARE(m_stage->state(1), text("running"));
        QCOMPARE(m_stage->dialogs().size(), 3);

        // The selected run is stopped.
        auto* const list = m_stage->find<QTableView>("runList");
        list->setFocus();
        list->selectRow(0);
        const BoxAnswerer willing(WindowStage::pressing(Qt::Key_Return));
        m_stage->pressStop();
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(0), text("stopped"), longTime);
        QCOMPARE(m_stage->state(1), text("running"));

        m_stage->find<QAction>("clearAction")->trigger();
        QCOMPARE(m_stage->runCount(), 1);
        QCOMPARE(m_stage->cell(0, "Model"), text("b.nec"));
        m_stage->pressStop();
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(0), text("stopped"), longTime);
    }

    void dialogOfARunIsBroughtBackByTheKeyboard()
    {
        startWaitingRun();
        common_KestProcessDialog* const dialog = m_stage->dialogs().constFirst();
        dialog->showMinimized();
        auto* const list = m_stage->find<QTableView>("runList");
        QApplication::setActiveWindow(&m_stage->window());
        list->setFocus();
        QTest::keyClick(list, Qt::Key_Return);
        QVERIFY(!dialog->isMinimized());

        const BoxAnswerer willing(WindowStage::pressing(Qt::Key_Return));
        dialog->close();
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(), text("stopped"), longTime);
        QTRY_VERIFY(m_stage->dialogs().isEmpty());
        QTest::keyClick(list, Qt::Key_Return);
        QCOMPARE(m_stage->outcomeText(), text("The window of this run has been closed."));
    }

    void failedStartIsToldOnceAndLeavesTheWindowReady_data()
    {
        QTest::addColumn<QString>("way");
        QTest::addColumn<QString>("told");
        QTest::newRow("no model") << text("no model") << text("There is no model");
        QTest::newRow("folder") << text("folder") << text("is a folder and not a model.");
        QTest::newRow("no program") << text("no program") << text("There is no component runkest");
        QTest::newRow("no format") << text("no format") << text("could not be started");
        QTest::newRow("no host") << text("no host") << text("remote host");
        QTest::newRow("no machines")
            << text("no machines") << text("No machines file could be found.");
    }

    void failedStartIsToldOnceAndLeavesTheWindowReady()
    {
        QFETCH(QString, way);
        QFETCH(QString, told);
        const QString model = m_stage->model("m.nec", "valid");
        if (way == text("no model")) {
            QFile::remove(model);
        } else if (way == text("folder")) {
            QFile::remove(model);
            QDir().mkpath(model);
        } else if (way == text("no host")) {
            m_stage->find<QCheckBox>("remoteBox")->click();
        } else if (way == text("no machines")) {
            m_stage->find<QCheckBox>("parallelBox")->click();
        } else {
            QFile::remove(m_stage->program("runkest"));
        }
        if (way == text("no format")) {
            writeFile(m_stage->program("runkest"), "\x7f"
                                                   "ELF no program");
            QFile::setPermissions(m_stage->program("runkest"), QFile::ReadOwner | QFile::ExeOwner);
        }
        const QStringList recentBefore = recentTexts();
        const BoxAnswerer reader(WindowStage::pressing(Qt::Key_Escape));
        m_stage->run(model);
        QCOMPARE(reader.texts.size(), 1);
        QVERIFY2(reader.texts.constFirst().contains(told), qPrintable(reader.texts.constFirst()));
        QCOMPARE(m_stage->state(), text("not started"));
        QTRY_VERIFY(m_stage->dialogs().isEmpty());
        QCOMPARE(recentTexts(), recentBefore);
        QVERIFY(m_stage->find<QPushButton>("runButton")->isEnabled());
        QVERIFY(!m_stage->find<QPushButton>("stopButton")->isEnabled());
        QVERIFY(WindowStage::quits([this] { m_stage->window().close(); }));
    }

    void copyOfTheMachinesFileGoesWithTheRun()
    {
        writeFile(m_stage->desk().path("user/machines.kest"), "localhost:2\n");
        QTest::mouseClick(m_stage->find<QCheckBox>("parallelBox"), Qt::LeftButton, {}, {5, 10});
        QVERIFY(m_stage->find<QCheckBox>("parallelBox")->isChecked());
        startWaitingRun("stubborn");
        QCOMPARE(temporaryFiles().size(), 1);
        // By force, and it is gone all the same: cleanup() looks.
        QVERIFY(WindowStage::quits([this] {
            m_stage->window().quit();
            m_stage->window().quit();
        }));
    }

    void closingAsksWhileARunIsGoing()
    {
        startWaitingRun();
        {
            BoxAnswerer unwilling(WindowStage::pressing(Qt::Key_Escape));
            m_stage->press(Qt::Key_Q, Qt::ControlModifier);
            QCOMPARE(unwilling.texts,
                     QStringList(text("Runs that are still going: 1. Stop them and quit?")));
        }
        QVERIFY(m_stage->window().isVisible());
        QCOMPARE(m_stage->state(), text("running"));
        const BoxAnswerer willing(WindowStage::pressing(Qt::Key_Return));
        QVERIFY(WindowStage::quits([this] { m_stage->window().close(); }));
        QVERIFY(!m_stage->window().isVisible());
        QCOMPARE(m_stage->state(), text("stopped"));
        QCOMPARE(m_stage->desk().processes(), QStringList());
    }

    void closingWithoutRunsDoesNotAsk()
    {
        m_stage->run(m_stage->model("m.nec", "valid"));
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(), text("valid"), longTime);
        QVERIFY(m_stage->dialogs().constFirst()->isVisible());
        BoxAnswerer reader(WindowStage::pressing(Qt::Key_Escape));
        QVERIFY(WindowStage::quits([this] { m_stage->window().close(); }));
        QCOMPARE(reader.texts, QStringList());
    }

    void whatDoesNotStopIsEndedByForceAtTheSecondClose()
    {
        startWaitingRun("stubborn");
        BoxAnswerer willing(WindowStage::pressing(Qt::Key_Return));
        QVERIFY(!WindowStage::quits([this] { m_stage->window().close(); }, 500));
        QCOMPARE(m_stage->state(), text("stopping, still running"));
        QVERIFY(m_stage->window().isVisible());
        QVERIFY(WindowStage::quits([this] { m_stage->window().close(); }));
        QCOMPARE(willing.texts.size(), 2);
        QCOMPARE(willing.texts.value(1),
                 text("Runs that did not stop yet: 1. End them by force and quit?"));
        QCOMPARE(m_stage->desk().processes(), QStringList());
    }

    void whatAStoppedComponentLeavesBehindIsEndedToo()
    {
        startWaitingRun("forgetful");
        QVERIFY(WindowStage::quits([this] { m_stage->window().quit(); }));
        QCOMPARE(m_stage->desk().processes(), QStringList());
    }

    void windowIsAsItWasAtTheNextStart()
    {
        const QString first = m_stage->model("first & best.nec", "valid");
        const QString second = m_stage->model("second.nec", "valid");
        m_stage->window().openModel(first);
        m_stage->window().openModel(second);
        m_stage->find<QComboBox>("componentBox")->setCurrentText(text("optkest"));
        m_stage->window().showNormal();
        m_stage->window().setGeometry(40, 50, 500, 400);
        const QPoint place = m_stage->window().pos();
        QVERIFY(WindowStage::quits([this] { m_stage->window().close(); }));
        m_stage->open();
        QCOMPARE(m_stage->window().pos(), place);
        QCOMPARE(m_stage->window().size(), QSize(500, 400));
        QVERIFY(!m_stage->window().isMaximized());
        QCOMPARE(m_stage->find<QLineEdit>("modelEdit")->text(), second);
        QCOMPARE(m_stage->find<QComboBox>("componentBox")->currentText(), text("optkest"));
        QCOMPARE(m_stage->window().windowTitle(), text("second.nec - kestdesk"));
        QString shownFirst = first;
        shownFirst.replace(QLatin1Char('&'), text("&&"));
        QCOMPARE(recentTexts(), QStringList({text("&1 ") + second, text("&2 ") + shownFirst}));
    }

    void maximisedWindowIsMaximisedAgain()
    {
        m_stage->window().showMaximized();
        QVERIFY(WindowStage::quits([this] { m_stage->window().close(); }));
        m_stage->open();
        QVERIFY(m_stage->window().isMaximized());
    }

    void modelOfTheLastSessionThatIsGoneIsTold()
    {
        const QString model = m_stage->model("m.nec", "valid");
        m_stage->window().openModel(model);
        QVERIFY(WindowStage::quits([this] { m_stage->window().close(); }));
        QFile::remove(model);
        m_stage->open();
        QCOMPARE(m_stage->find<QLineEdit>("modelEdit")->text(), QString());
        QCOMPARE(m_stage->outcomeText(), text("The model of the last session is gone: ") + model);
    }

    void windowOffEveryScreenIsBroughtBack_data()
    {
        QTest::addColumn<QPoint>("place");
        QTest::addColumn<QSize>("size");
        QTest::newRow("far right") << QPoint(90000, 10) << QSize(500, 400);
        QTest::newRow("far left") << QPoint(-90000, 10) << QSize(500, 400);
        QTest::newRow("title bar above") << QPoint(10, -300) << QSize(500, 400);
        QTest::newRow("below") << QPoint(10, 90000) << QSize(500, 400);
        QTest::newRow("beyond all numbers")
            << QPoint(2147483647, -2147483647) << QSize(2147483647, 1);
    }

    void windowOffEveryScreenIsBroughtBack()
    {
        QFETCH(QPoint, place);
        QFETCH(QSize, size);
        m_stage->close();
        QSettings settings(m_stage->desk().path("user/kestdesk.ini"), QSettings::IniFormat);
        settings.setValue(text("geometry/x_pos"), place.x());
        settings.setValue(text("geometry/y_pos"), place.y());
        settings.setValue(text("geometry/width"), size.width());
        settings.setValue(text("geometry/height"), size.height());
        settings.setValue(text("geometry/isMaximised"), false);
        settings.sync();
        m_stage->open();
        const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
        const QRect shown = m_stage->window().geometry();
        QVERIFY2(screen.contains(shown), qPrintable(text("%1 %2 %3 %4")
                                                        .arg(shown.x())
                                                        .arg(shown.y())
                                                        .arg(shown.width())
                                                        .arg(shown.height())));
        QVERIFY(m_stage->window().width() >= 200);
    }

    void recentFileThatHasGoneIsTold()
    {
        const QString model = m_stage->model("m.nec", "valid");
        const QString other = m_stage->model("other.nec", "valid");
        m_stage->window().openModel(model);
        m_stage->window().openModel(other);
        QFile::remove(model);
        recentTexts();
        const BoxAnswerer reader(WindowStage::pressing(Qt::Key_Escape));
        m_stage->find<QMenu>("recentMenu")->actions().value(1)->trigger();
        QCOMPARE(reader.texts,
                 QStringList(text("There is no model that can be read at\n") + model + text(".")));
        QCOMPARE(m_stage->find<QLineEdit>("modelEdit")->text(), other);
    }

    void modelIsDroppedOnTheWindow()
    {
        const QString model = m_stage->model("a model.nec", "valid");
        QMimeData data;
        data.setUrls({QUrl(text("https://example.org/m.nec")), QUrl::fromLocalFile(model)});
        QVERIFY(drop(&m_stage->window(), data));
        QCOMPARE(m_stage->find<QLineEdit>("modelEdit")->text(), model);
        QVERIFY(m_stage->find<QPushButton>("runButton")->hasFocus());
    }

    void fieldLeavesDroppedFilesToTheWindow()
    {
        QVERIFY(!m_stage->find<QLineEdit>("modelEdit")->acceptDrops());
    }

    void onlyLocalFilesCanBeDropped()
    {
        QMimeData address;
        address.setUrls({QUrl(text("https://example.org/m.nec"))});
        QVERIFY(!drop(&m_stage->window(), address));
        QMimeData words;
        words.setText(text("m.nec"));
        QVERIFY(!drop(&m_stage->window(), words));
        QCOMPARE(m_stage->find<QLineEdit>("modelEdit")->text(), QString());
    }

    void choiceIsKeptAmongTheLaunchOptions()
    {
        m_stage->find<QComboBox>("componentBox")->setCurrentText(text("optkest"));
        m_stage->find<QCheckBox>("parallelBox")->click();
        m_stage->find<QAction>("farmOutAction")->trigger();
        QSettings settings(m_stage->desk().path("user/kest.ini"), QSettings::IniFormat);
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

    void componentsHaveTheOptionsThatMeanSomethingToThem_data()
    {
        QTest::addColumn<QString>("component");
        QTest::addColumn<bool>("parallel");
        QTest::addColumn<bool>("farmed");
        QTest::newRow("runkest") << text("runkest") << true << false;
        QTest::newRow("prekest") << text("prekest") << false << false;
        QTest::newRow("optkest") << text("optkest") << true << true;
        QTest::newRow("amrkest") << text("amrkest") << true << false;
    }

    void componentsHaveTheOptionsThatMeanSomethingToThem()
    {
        QFETCH(QString, component);
        QFETCH(bool, parallel);
        QFETCH(bool, farmed);
        m_stage->find<QComboBox>("componentBox")->setCurrentText(component);
        QCOMPARE(m_stage->find<QCheckBox>("parallelBox")->isEnabled(), parallel);
        QCOMPARE(m_stage->find<QCheckBox>("remoteBox")->isEnabled(), parallel);
        QCOMPARE(m_stage->find<QAction>("farmOutAction")->isEnabled(), farmed);
        m_stage->run(m_stage->model("m.nec", "valid"));
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(), text("valid"), longTime);
        QCOMPARE(m_stage->cell(0, "Component"), component);
    }

    void nothingRunsWithoutAModel()
    {
        QVERIFY(!m_stage->find<QPushButton>("runButton")->isEnabled());
        QVERIFY(!m_stage->find<QAction>("runAction")->isEnabled());
        m_stage->pressRun();
        QTest::keyClick(m_stage->find<QLineEdit>("modelEdit"), Qt::Key_Return);
        QCOMPARE(m_stage->runCount(), 0);
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
        QStringList together = textsOfActions(m_stage->window().menuBar()->actions());
        const QList<QAbstractButton*> buttons =
            m_stage->find<QWidget>("runPanel")->findChildren<QAbstractButton*>();
        for (const QAbstractButton* const button : buttons) {
            together.append(button->text());
        }
        const QList<QLabel*> labels = m_stage->window().centralWidget()->findChildren<QLabel*>();
        for (const QLabel* const label : labels) {
            together.append(label->text());
        }
        QStringList keys = mnemonicsOf(together);
        QCOMPARE(keys.size(), 13);
        QCOMPARE(keys.removeDuplicates(), 0);

        const QList<QAction*> menus = m_stage->window().menuBar()->actions();
        QCOMPARE(menus.size(), 5);
        for (const QAction* const menu : menus) {
            QStringList ofMenu = mnemonicsOf(textsOfActions(menu->menu()->actions()));
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
        for (const char* const name : {"modelEdit", "componentBox", "runList"}) {
            QVERIFY2(!m_stage->find<QWidget>(name)->accessibleName().isEmpty(), name);
        }
    }

    void timesAreShownWhileARunIsGoing()
    {
        startWaitingRun();
        QCOMPARE(m_stage->cell(0, "Progress"), text("0 %"));
        QCOMPARE(m_stage->cell(0, "Remaining"), QString());
        QTRY_VERIFY_WITH_TIMEOUT(m_stage->cell(0, "Elapsed") != text("0:00"), longTime);
        const BoxAnswerer willing(WindowStage::pressing(Qt::Key_Return));
        m_stage->pressStop();
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(), text("stopped"), longTime);
        const QString ended = m_stage->cell(0, "Elapsed");
        QTest::qWait(1100);
        QCOMPARE(m_stage->cell(0, "Elapsed"), ended);
    }

    void remainingTimeIsEstimatedOnceTheTotalMoves()
    {
        startWaitingRun("halfway");
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->cell(0, "Progress"), text("50 %"), longTime);
        QCOMPARE(m_stage->cell(0, "Remaining"), m_stage->cell(0, "Elapsed"));
        QVERIFY(!m_stage->cell(0, "Remaining").isEmpty());
    }

    void windowMayGoWhileRunsAndDialogsAreThere()
    {
        startWaitingRun("wait", "a.nec");
        startWaitingRun("wait", "b.nec");
        m_stage->close(); // cleanup() looks for what is left
    }

    void programEndsItsRunsWhenItIsAskedToEnd()
    {
        m_stage->close();
        Desk desk;
        writeFile(desk.path("models/m.nec"), "forgetful");
        QVERIFY(QFile::link(text(FAKE_COMPONENT), desk.path("home/bin/runkest")));
        desk.set("QT_QPA_PLATFORM", text("offscreen"));
        desk.set("QT_PLUGIN_PATH", text(RUN_PRESSER_PATH));
        desk.set("QT_QPA_GENERIC_PLUGINS", text("runpresser"));
        QProcess program;
        desk.start(program, {text("m.nec")});
        QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(desk.path("models/m.nec.seen")), longTime);
        QTRY_COMPARE_WITH_TIMEOUT(desk.processes().size(), 3, longTime);
        QTRY_VERIFY_WITH_TIMEOUT(desk.processes().filter(text("runkest")).size() == 2, longTime);
        ::kill(static_cast<pid_t>(program.processId()), SIGTERM);
        const Desk::Result result = Desk::resultOf(program);
        QCOMPARE(result.exitCode, 0);
        QCOMPARE(desk.processes(), QStringList());
        const QSettings settings(desk.path("user/kestdesk.ini"), QSettings::IniFormat);
        QCOMPARE(settings.value(text("session/model")).toString(), desk.path("models/m.nec"));
    }

    void programTellsOfAModelThatIsNotThere()
    {
        m_stage->close();
        Desk desk;
        desk.set("QT_QPA_PLATFORM", text("offscreen"));
        QProcess program;
        desk.start(program, {text("gone.nec")});
        QVERIFY(!program.waitForFinished(1500));
        ::kill(static_cast<pid_t>(program.processId()), SIGTERM);
        QCOMPARE(Desk::resultOf(program).exitCode, 0);
    }
};

QTEST_MAIN(tst_main_window)

#include "tst_main_window.moc"
