#include "RunEndings.h"
#include "WindowStage.h"

#include <Unprivileged.h>

#include <HelpClient.h>
#include <WindowRun.h>

#include <common_ComponentsLaunchOptions.h>
#include <common_IIconUtility.h>
#include <common_ServiceOf.h>

#include <QDropEvent>
#include <QFileDialog>
#include <QMenuBar>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QScreen>
#include <QTabWidget>
#include <QTextEdit>
#include <QThread>

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

    void startWaitingRun(const QByteArray& word = "wait", const char* name = "m.nec") const
    {
        const int row = m_stage->runCount();
        m_stage->run(m_stage->model(name, word));
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(row), text("running"), longTime);
        const common_KestProcessDialog* const dialog = m_stage->dialogs().constLast();
        auto* const output = qobject_cast<QTextEdit*>(dialog->findChild<QTabWidget*>()->widget(0));
        QTRY_VERIFY_WITH_TIMEOUT(output->toPlainText().contains(text("up")), longTime);
    }

    // The component's process, which has started the others.
    qint64 runProcess() const
    {
        qint64 oldest = 0;
        const QStringList processes = m_stage->desk().processes();
        for (const QString& process : processes) {
            const qint64 id = process.section(QLatin1Char(' '), 0, 0).toLongLong();
            oldest = oldest == 0 ? id : qMin(oldest, id);
        }
        return oldest;
    }

    QStringList recentTexts() const
    {
        auto* const menu = m_stage->find<QMenu>("recentMenu");
        Q_EMIT menu->aboutToShow();
        return textsOfActions(menu->actions());
    }

    QStringList temporaryFiles() const
    {
        return QDir(m_stage->desk().path("user"))
            .entryList({text("gui_tmp_machfile*"), text(".gui_tmp_machfile*")},
                       QDir::AllEntries | QDir::Hidden);
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
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(), text("fault, exit code 1"), longTime);
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

    void outcomeFollowsFromTheEnd_data()
    {
        addRunEndings();
    }

    void outcomeFollowsFromTheEnd()
    {
        QFETCH(int, row);
        const RunEnding& ending = runEndings().at(row);
        if (ending.isStopped) {
            startWaitingRun(ending.model);
            const BoxAnswerer willing(WindowStage::pressing(Qt::Key_Return));
            m_stage->pressStop();
        } else {
            m_stage->run(m_stage->model("m.nec", ending.model));
        }
        const QString word = RunOutcome::word(ending.outcome);
        const QString reason = text(ending.shortReason);
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(),
                                  reason.isEmpty() ? word : word + text(", ") + reason, longTime);
        const QModelIndex cell = m_stage->find<QTableView>("runList")->model()->index(0, 2);
        const QString tip = cell.data(Qt::ToolTipRole).toString();
        const QString told = m_stage->outcomeText();
        if (*ending.meaning == '\0') {
            QCOMPARE(told, text("runkest of m.nec: ") + word);
            QCOMPARE(tip, word);
        } else {
            QVERIFY2(told.startsWith(text("runkest of m.nec: %1. It ").arg(word)),
                     qPrintable(told));
            QVERIFY2(told.contains(text(ending.meaning)), qPrintable(told));
            QVERIFY2(tip.contains(text(ending.meaning)), qPrintable(tip));
        }
    }

    // It is cut where there is no room for it, and whole in its tool tip.
    void longOutcomeDoesNotWidenTheWindow()
    {
        const int before = m_stage->window().minimumSizeHint().width();
        m_stage->run(m_stage->model("m.nec", "dies 50 9"));
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(), text("fault, SIGKILL"), longTime);
        QVERIFY(m_stage->window().minimumSizeHint().width() <= before);
        QCOMPARE(m_stage->find<QLabel>("outcomeLabel")->toolTip(), m_stage->outcomeText());
    }

    void componentThatReadsItsInputFindsItEmpty()
    {
        m_stage->run(m_stage->model("m.nec", "input"));
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(), text("valid"), longTime);
    }

    void runThatItsDialogHasAskedToStopIsShownSo()
    {
        startWaitingRun("stubborn");
        {
            const BoxAnswerer willing(WindowStage::pressing(Qt::Key_Return));
            QTest::mouseClick(
                WindowStage::inDialog<QPushButton>(m_stage->dialogs().constFirst(), "buttonStop"),
                Qt::LeftButton);
        }
        QCOMPARE(m_stage->state(), text("stopping, still running"));
        m_stage->endRuns(SIGKILL);
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(), text("stopped"), longTime);
    }

    void runThatSomebodyElseTerminatesIsStopped_data()
    {
        QTest::addColumn<QByteArray>("word");
        QTest::newRow("dies of the signal") << QByteArray("wait");
        QTest::newRow("exit code of shells") << QByteArray("tidy");
    }

    void runThatSomebodyElseTerminatesIsStopped()
    {
        QFETCH(QByteArray, word);
        startWaitingRun(word);
        m_stage->endRuns(SIGTERM);
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(), text("stopped"), longTime);
    }

    void runThatIsAskedToStopIsStoppedHoweverItEnds()
    {
        startWaitingRun("stubborn");
        const BoxAnswerer willing(WindowStage::pressing(Qt::Key_Return));
        m_stage->pressStop();
        m_stage->endRuns(SIGKILL);
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(), text("stopped"), longTime);
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

    void newestRunIsStoppedUnlessAnotherOneThatIsGoingIsSelected()
    {
        startWaitingRun("wait", "a.nec");
        startWaitingRun("wait", "b.nec");
        startWaitingRun("wait", "c.nec");
        BoxAnswerer willing(WindowStage::pressing(Qt::Key_Return));
        m_stage->pressStop(); // a new run is the selected one
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(2), text("stopped"), longTime);
        m_stage->pressStop(); // the selected one has ended
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(1), text("stopped"), longTime);
        QCOMPARE(m_stage->state(0), text("running"));
        startWaitingRun("wait", "d.nec");
        m_stage->find<QTableView>("runList")->selectionModel()->clear();
        m_stage->pressStop();
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(3), text("stopped"), longTime);
        QCOMPARE(m_stage->state(0), text("running"));
        QCOMPARE(willing.texts.size(), 3);
    }

    void whatARunThatWasStoppedLeftBehindIsEndedAtTheClose()
    {
        startWaitingRun("forgetful");
        const BoxAnswerer willing(WindowStage::pressing(Qt::Key_Return));
        m_stage->pressStop();
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(), text("stopped"), longTime);
        QCOMPARE(m_stage->desk().processes().size(), 1);
        QVERIFY(WindowStage::quits([this] { m_stage->window().close(); }));
        QCOMPARE(m_stage->desk().processes(), QStringList());
    }

    void whatARunLeftBehindIsEndedAtTheCloseHoweverItEnded_data()
    {
        QTest::addColumn<int>("way");
        QTest::newRow("stopped in its dialog") << 0;
        QTest::newRow("terminated from outside") << int(SIGTERM);
        QTest::newRow("killed from outside") << int(SIGKILL);
    }

    void whatARunLeftBehindIsEndedAtTheCloseHoweverItEnded()
    {
        QFETCH(int, way);
        startWaitingRun("forgetful");
        const BoxAnswerer willing(WindowStage::pressing(Qt::Key_Return));
        if (way == 0) {
            QTest::mouseClick(
                WindowStage::inDialog<QPushButton>(m_stage->dialogs().constFirst(), "buttonStop"),
                Qt::LeftButton);
        } else {
            ::kill(static_cast<pid_t>(runProcess()), way);
        }
        QTRY_VERIFY_WITH_TIMEOUT(!m_stage->find<QPushButton>("stopButton")->isEnabled(), longTime);
        QCOMPARE(m_stage->desk().processes().size(), 1);
        QVERIFY(WindowStage::quits([this] { m_stage->window().close(); }));
        QCOMPARE(m_stage->desk().processes(), QStringList());
    }

    // Nobody waits in the window's thread while what is left gets time to end.
    void windowStaysAliveWhileWhatIsLeftIsEnded()
    {
        startWaitingRun("forgetful");
        const BoxAnswerer willing(WindowStage::pressing(Qt::Key_Return));
        m_stage->pressStop();
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(), text("stopped"), longTime);
        int turns = 0;
        bool isUnseen = false;
        QTimer turn;
        connect(&turn, &QTimer::timeout, this, [&] {
            ++turns;
            isUnseen = isUnseen ||
                       (!m_stage->window().isVisible() && !m_stage->desk().processes().isEmpty());
        });
        QVERIFY(WindowStage::quits([&] {
            turn.start(20);
            m_stage->window().close();
        }));
        QVERIFY2(turns > 2, qPrintable(QString::number(turns))); // one at most if somebody waits
        QVERIFY(!isUnseen);
        QVERIFY(!m_stage->window().isVisible());
        QCOMPARE(m_stage->desk().processes(), QStringList());
        QCOMPARE(m_stage->outcomeText(), text("Ending what the runs have left behind..."));
        QVERIFY(!m_stage->find<QPushButton>("runButton")->isEnabled());
    }

    void secondCloseDoesNotWaitForWhatIsLeft_data()
    {
        QTest::addColumn<bool>("bySignal");
        QTest::newRow("close") << false;
        QTest::newRow("signal") << true;
    }

    void secondCloseDoesNotWaitForWhatIsLeft()
    {
        QFETCH(bool, bySignal);
        startWaitingRun("forgetful");
        const BoxAnswerer willing(WindowStage::pressing(Qt::Key_Return));
        m_stage->pressStop();
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(), text("stopped"), longTime);
        QElapsedTimer clock;
        QVERIFY(WindowStage::quits([&] {
            clock.start();
            for (int i = 0; i < 2; ++i) {
                bySignal ? m_stage->window().quit() : static_cast<void>(m_stage->window().close());
            }
        }));
        QVERIFY2(clock.elapsed() < 1500, qPrintable(QString::number(clock.elapsed())));
        QCOMPARE(m_stage->desk().processes(), QStringList());
    }

    void orphansThatHaveEndedAreTakenLeaveOf()
    {
        startWaitingRun("forgetful");
        const QStringList before = m_stage->desk().processes();
        QCOMPARE(before.size(), 2);
        ::kill(static_cast<pid_t>(runProcess()), SIGKILL);
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->desk().processes().size(), 1, longTime);
        const pid_t orphan =
            m_stage->desk().processes().constFirst().section(QLatin1Char(' '), 0, 0).toInt();
        ::kill(orphan, SIGKILL);
        QTRY_VERIFY_WITH_TIMEOUT(::kill(orphan, 0) != 0, longTime);
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(), text("fault, SIGKILL"), longTime);
    }

    void newRunIsSelectedAndTheLastOutcomeGoes()
    {
        m_stage->run(m_stage->model("a.nec", "valid"));
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(), text("valid"), longTime);
        QVERIFY(m_stage->window().isVisible()); // the end of a run closes nothing
        QVERIFY(!m_stage->outcomeText().isEmpty());
        startWaitingRun("wait", "b.nec");
        QCOMPARE(m_stage->outcomeText(), QString());
        const QModelIndexList rows =
            m_stage->find<QTableView>("runList")->selectionModel()->selectedRows();
        QCOMPARE(rows.size(), 1);
        QCOMPARE(rows.constFirst().row(), 1);
    }

    void pathMayBeRelativeAndHaveBlanksAround()
    {
        const QString model = m_stage->model("m.nec", "valid");
        const QString relative = QDir::current().relativeFilePath(model);
        QVERIFY(QFileInfo(relative).isRelative());
        m_stage->window().openModel(relative);
        QCOMPARE(m_stage->find<QLineEdit>("modelEdit")->text(), model);
        m_stage->run(text("  ") + relative + text(" "));
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(), text("valid"), longTime);
        QCOMPARE(m_stage->find<QLineEdit>("modelEdit")->text(), model);
        QCOMPARE(recentTexts(), QStringList(text("&1 ") + model));
        const QAbstractItemModel* const runs = m_stage->find<QTableView>("runList")->model();
        QCOMPARE(runs->index(0, 0).data(Qt::ToolTipRole).toString(), model);
    }

    void boxesThatMeanNothingToTheComponentDoNotCount()
    {
        writeFile(m_stage->desk().path("user/machines.kest"), "localhost:2\n");
        m_stage->find<QCheckBox>("parallelBox")->click();
        m_stage->find<QComboBox>("componentBox")->setCurrentText(text("prekest"));
        QVERIFY(m_stage->find<QCheckBox>("parallelBox")->isChecked());
        m_stage->run(m_stage->model("m.nec", "valid"));
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(), text("valid"), longTime);
        const QByteArray seen = contentOf(m_stage->desk().path("models/m.nec.seen"));
        QVERIFY(!seen.isEmpty());
        QVERIFY(!seen.contains("--machines-file"));
    }

    void optimisationIsFarmedOutWhereThatIsTicked()
    {
        writeFile(m_stage->desk().path("user/machines.kest"), "localhost:2\n");
        m_stage->find<QComboBox>("componentBox")->setCurrentText(text("optkest"));
        const QString model = m_stage->model("m.nec", "valid");
        const QString seen = m_stage->desk().path("models/m.nec.seen");
        m_stage->run(model);
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(0), text("valid"), longTime);
        QVERIFY(!contentOf(seen).contains("--machines-file"));
        m_stage->find<QAction>("farmOutAction")->trigger();
        m_stage->run(model);
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(1), text("valid"), longTime);
        QVERIFY(contentOf(seen).contains("--machines-file"));
    }

    void dialogOfARunIsBroughtBackByTheKeyboard_data()
    {
        QTest::addColumn<int>("modifiers");
        QTest::newRow("Enter in the list") << static_cast<int>(Qt::NoModifier);
        QTest::newRow("Ctrl and Enter") << static_cast<int>(Qt::ControlModifier);
    }

    void dialogOfARunIsBroughtBackByTheKeyboard()
    {
        QFETCH(int, modifiers);
        startWaitingRun();
        common_KestProcessDialog* const dialog = m_stage->dialogs().constFirst();
        dialog->showMinimized();
        auto* const list = m_stage->find<QTableView>("runList");
        QApplication::setActiveWindow(&m_stage->window());
        list->setFocus();
        if (modifiers != Qt::NoModifier) {
            m_stage->find<QLineEdit>("modelEdit")->setFocus();
        }
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return,
                        Qt::KeyboardModifiers(modifiers));
        QVERIFY(!dialog->isMinimized());

        const BoxAnswerer willing(WindowStage::pressing(Qt::Key_Return));
        dialog->close();
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(), text("stopped"), longTime);
        QTRY_VERIFY(m_stage->dialogs().isEmpty());
        QApplication::setActiveWindow(&m_stage->window());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return,
                        Qt::KeyboardModifiers(modifiers));
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
        QTest::newRow("no format, with a machines file")
            << text("no format, parallel") << text("could not be started");
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
        if (way == text("no format, parallel")) {
            writeFile(m_stage->desk().path("user/machines.kest"), "localhost:2\n");
            m_stage->find<QCheckBox>("parallelBox")->click();
        }
        if (way.startsWith(text("no format"))) {
            writeFile(m_stage->program("runkest"), "\x7f"
                                                   "ELF no program");
            QFile::setPermissions(m_stage->program("runkest"), QFile::ReadOwner | QFile::ExeOwner);
        }
        const QStringList recentBefore = recentTexts();
        const BoxAnswerer reader(WindowStage::pressing(Qt::Key_Escape));
        m_stage->run(model);
        QCOMPARE(reader.texts.size(), 1);
        const QString complaint = reader.texts.constFirst();
        QVERIFY2(complaint.contains(told), qPrintable(complaint));
        QVERIFY2(!complaint.at(0).isLower() && complaint.trimmed().endsWith(QLatin1Char('.')),
                 qPrintable(complaint));
        QCOMPARE(m_stage->state(), text("not started"));
        QTRY_VERIFY(m_stage->dialogs().isEmpty());
        QCOMPARE(temporaryFiles(), QStringList());
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
        QCOMPARE(temporaryFiles().size(), 2); // the copy, and whose it is
        // By force, and it is gone all the same: cleanup() looks.
        QVERIFY(WindowStage::quits([this] {
            m_stage->window().quit();
            m_stage->window().quit();
        }));
    }

    void machinesFileWithoutHostsIsOffered_data()
    {
        QTest::addColumn<QString>("button"); // empty: Escape
        QTest::newRow("this machine") << text("&Use this machine");
        QTest::newRow("cancelled") << QString();
        QTest::newRow("configured") << text("&Configure...");
        QTest::newRow("not configured") << text("&Configure...!");
    }

    void machinesFileWithoutHostsIsOffered()
    {
        QFETCH(QString, button);
        const QString file = m_stage->desk().path("user/machines.kest");
        writeFile(file, "# host:count\n");
        m_stage->find<QCheckBox>("parallelBox")->click();
        QStringList texts;
        const bool isSaved = !button.endsWith(QLatin1Char('!'));
        button.remove(QLatin1Char('!'));
        const ModalVisitor visitor([&](QDialog& dialog) {
            auto* const box = qobject_cast<QMessageBox*>(&dialog);
            if (box == nullptr) { // the dialog of the machines file
                if (isSaved) {
                    dialog.findChild<QPlainTextEdit*>(text("machinesText"))
                        ->setPlainText(text("localhost:3\n"));
                }
                dialog.findChild<QPushButton*>(isSaved ? text("save") : text("cancel"))->click();
                return;
            }
            texts.append(box->text());
            const QList<QAbstractButton*> buttons = box->buttons();
            for (QAbstractButton* const each : buttons) {
                if (each->text() == button) {
                    each->click();
                    return;
                }
            }
            QTest::keyClick(box, Qt::Key_Escape);
        });
        m_stage->run(m_stage->model("m.nec", "valid"));
        const bool isRun = !button.isEmpty() && isSaved;
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(), isRun ? text("valid") : text("not started"),
                                  longTime);
        QCOMPARE(texts.size(), 1);
        QVERIFY2(
            texts.constFirst().startsWith(text("The machines file %1 names no host.").arg(file)),
            qPrintable(texts.constFirst()));
        const QByteArray line =
            "localhost:" + QByteArray::number(qMax(QThread::idealThreadCount(), 1)) + '\n';
        const QByteArray content = contentOf(file);
        if (!isRun) {
            QCOMPARE(content, QByteArray("# host:count\n"));
        } else {
            QCOMPARE(content, button.startsWith(text("&U")) ? "# host:count\n" + line
                                                            : QByteArray("localhost:3\n"));
            QCOMPARE(contentOf(m_stage->desk().path("models/m.nec.machines")), content);
        }
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

    void windowClosesWhenTheLastOfSeveralRunsHasStopped()
    {
        startWaitingRun("wait", "a.nec");
        startWaitingRun("stubborn", "b.nec");
        BoxAnswerer willing(WindowStage::pressing(Qt::Key_Return));
        QVERIFY(!WindowStage::quits([this] { m_stage->window().close(); }, 500));
        QCOMPARE(willing.texts,
                 QStringList(text("Runs that are still going: 2. Stop them and quit?")));
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(0), text("stopped"), longTime);
        QCOMPARE(m_stage->state(1), text("stopping, still running"));
        QVERIFY(m_stage->window().isVisible());
        QVERIFY(WindowStage::quits([this] { m_stage->endRuns(SIGKILL); }));
        QVERIFY(!m_stage->window().isVisible());
        QCOMPARE(willing.texts.size(), 1);
    }

    void windowStaysWhenTheUserThinksBetterOfClosing()
    {
        startWaitingRun("stubborn");
        {
            const BoxAnswerer willing(WindowStage::pressing(Qt::Key_Return));
            m_stage->window().close();
        }
        QCOMPARE(m_stage->outcomeText(), text("Stopping the runs..."));
        {
            const BoxAnswerer unwilling(WindowStage::pressing(Qt::Key_Escape));
            m_stage->window().close();
        }
        m_stage->endRuns(SIGKILL);
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(), text("stopped"), longTime);
        QVERIFY(!WindowStage::quits([] {}, 300));
        QVERIFY(m_stage->window().isVisible());
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

    void lastModelIsLeftOutWhereTheSettingsSaySo()
    {
        QCOMPARE(m_stage->window().windowTitle(), text("kestdesk"));
        m_stage->window().openModel(m_stage->model("m.nec", "valid"));
        QVERIFY(WindowStage::quits([this] { m_stage->window().close(); }));
        m_stage->close();
        const QString file = m_stage->desk().path("user/kestdesk.ini");
        QByteArray settings = contentOf(file);
        QVERIFY(settings.contains("recentSession=true"));
        writeFile(file, settings.replace("recentSession=true", "recentSession=false"));
        m_stage->open();
        QCOMPARE(m_stage->find<QLineEdit>("modelEdit")->text(), QString());
        QCOMPARE(m_stage->window().windowTitle(), text("kestdesk"));
        QCOMPARE(recentTexts().size(), 1);
        QVERIFY(WindowStage::quits([this] { m_stage->window().close(); }));
        QVERIFY(contentOf(file).contains("recentSession=true"));
    }

    void componentOfTheLastSessionThatIsNotKnownChangesNothing()
    {
        m_stage->close();
        QSettings settings(m_stage->desk().path("user/kestdesk.ini"), QSettings::IniFormat);
        settings.setValue(text("session/component"), text("gonekest"));
        settings.sync();
        m_stage->open();
        QCOMPARE(m_stage->find<QComboBox>("componentBox")->currentText(), text("runkest"));
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

    void recentFileIsOpenedFromTheMenu()
    {
        QCOMPARE(recentTexts(), QStringList(text("No recent files")));
        QVERIFY(!m_stage->find<QMenu>("recentMenu")->actions().constFirst()->isEnabled());
        const QString first = m_stage->model("first.nec", "valid");
        m_stage->window().openModel(first);
        m_stage->window().openModel(m_stage->model("second.nec", "valid"));
        QCOMPARE(recentTexts().size(), 2);
        m_stage->find<QMenu>("recentMenu")->actions().value(1)->trigger();
        QCOMPARE(m_stage->find<QLineEdit>("modelEdit")->text(), first);
        QCOMPARE(m_stage->window().windowTitle(), text("first.nec - kestdesk"));
        QCOMPARE(recentTexts().constFirst(), text("&1 ") + first);
    }

    void modelThatMayNotBeReadIsTold()
    {
        const QString model = m_stage->model("m.nec", "valid");
        QVERIFY(QFile::setPermissions(model, {}));
        const BoxAnswerer reader(WindowStage::pressing(Qt::Key_Escape));
        {
            const Unprivileged user; // to an administrator every file is open
            m_stage->window().openModel(model);
        }
        QCOMPARE(reader.texts.size(), 1);
        QCOMPARE(m_stage->find<QLineEdit>("modelEdit")->text(), QString());
    }

    void folderIsNoModel()
    {
        const BoxAnswerer reader(WindowStage::pressing(Qt::Key_Escape));
        m_stage->window().openModel(m_stage->desk().path("models"));
        QCOMPARE(reader.texts.size(), 1);
        QCOMPARE(m_stage->find<QLineEdit>("modelEdit")->text(), QString());
    }

    void modelIsChosenInADialog_data()
    {
        QTest::addColumn<QString>("way");
        for (const char* const way : {"button", "menu", "key"}) {
            QTest::newRow(way) << text(way);
        }
    }

    void modelIsChosenInADialog()
    {
        QFETCH(QString, way);
        const QString model = m_stage->model("chosen.nec", "valid");
        m_stage->window().openModel(m_stage->model("m.nec", "valid"));
        QStringList folders;
        const ModalVisitor chooser([&](QDialog& dialog) {
            if (auto* const files = qobject_cast<QFileDialog*>(&dialog)) {
                folders.append(files->directory().path());
                auto* const name = files->findChild<QLineEdit*>(text("fileNameEdit"));
                QTest::keyClicks(name, text("chosen.nec"));
                QTest::keyClick(name, Qt::Key_Return);
            }
        });
        if (way == text("button")) {
            QTest::mouseClick(m_stage->find<QPushButton>("openButton"), Qt::LeftButton);
        } else if (way == text("menu")) {
            m_stage->find<QAction>("openAction")->trigger();
        } else {
            m_stage->press(Qt::Key_O, Qt::ControlModifier);
        }
        QCOMPARE(folders, QStringList(QFileInfo(model).path()));
        QCOMPARE(m_stage->find<QLineEdit>("modelEdit")->text(), model);
    }

    void choosingNoModelChangesNothing()
    {
        const QString model = m_stage->model("m.nec", "valid");
        m_stage->window().openModel(model);
        int count = 0;
        const ModalVisitor unwilling([&count](QDialog& dialog) {
            ++count;
            QTest::keyClick(&dialog, Qt::Key_Escape);
        });
        m_stage->press(Qt::Key_O, Qt::ControlModifier);
        QCOMPARE(count, 1);
        QCOMPARE(m_stage->find<QLineEdit>("modelEdit")->text(), model);
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
        QVERIFY(m_stage->window().acceptDrops());
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

    void aboutTellsTheVersionAndTheInstallation()
    {
        QCoreApplication::setApplicationVersion(text("1.2.3"));
        const BoxAnswerer reader(WindowStage::pressing(Qt::Key_Return));
        m_stage->find<QAction>("aboutAction")->trigger();
        QCOMPARE(reader.texts.size(), 1);
        QVERIFY(reader.texts.constFirst().startsWith(text("kestdesk 1.2.3\n")));
        QVERIFY(reader.texts.constFirst().contains(m_stage->desk().path("home")));
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
        for (int i = 0; i < 8; ++i) {
            m_stage->pressFocused(Qt::Key_Tab);
            reached.append(m_stage->window().focusWidget()->objectName());
        }
        QCOMPARE(reached, QStringList({text("modelEdit"), text("openButton"), text("componentBox"),
                                       text("parallelBox"), text("remoteBox"), text("runButton"),
                                       text("stopButton"), text("runList")}));
    }

    void enterInTheFieldOfTheModelRunsIt()
    {
        m_stage->typeModel(m_stage->model("m.nec", "valid"));
        m_stage->pressFocused(Qt::Key_Return);
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(), text("valid"), longTime);
    }

    void spaceOnTheButtonsRunsAndStops()
    {
        m_stage->window().openModel(m_stage->model("m.nec", "wait"));
        m_stage->pressFocused(Qt::Key_Space);
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(), text("running"), longTime);
        const BoxAnswerer willing(WindowStage::pressing(Qt::Key_Return));
        m_stage->find<QPushButton>("stopButton")->setFocus();
        m_stage->pressFocused(Qt::Key_Space);
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(), text("stopped"), longTime);
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

    void windowAndStatesHaveTheirIcons()
    {
        QVERIFY(!m_stage->window().windowIcon().isNull());
        const QAbstractItemModel* const runs = m_stage->find<QTableView>("runList")->model();
        const auto shown = [runs](int row) {
            return runs->index(row, 2).data(Qt::DecorationRole).value<QIcon>().pixmap(16).toImage();
        };
        const auto named = [](const char* name) {
            return GET_SERVICE(common_IIconUtility)->getIcon(text(name)).pixmap(16).toImage();
        };
        m_stage->run(m_stage->model("valid.nec", "valid"));
        m_stage->run(m_stage->model("fault.nec", "fault"));
        startWaitingRun();
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(0), text("valid"), longTime);
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(1), text("fault, exit code 3"), longTime);
        QCOMPARE(shown(0), named("valid"));
        QCOMPARE(shown(1), named("fault"));
        QCOMPARE(shown(2), named("play"));
        QVERIFY(shown(0) != shown(1) && shown(1) != shown(2));
        m_stage->endRuns(SIGTERM);
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(2), text("stopped"), longTime);
        QCOMPARE(shown(2), named("exclude"));
        QVERIFY(shown(2) != shown(1));
        QVERIFY(!runs->index(0, 0).data(Qt::DecorationRole).isValid());
    }

    void numbersStandOnTheRight()
    {
        m_stage->run(m_stage->model("m.nec", "valid"));
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(), text("valid"), longTime);
        const QAbstractItemModel* const runs = m_stage->find<QTableView>("runList")->model();
        QString sides;
        for (int i = 0; i < runs->columnCount(); ++i) {
            const int alignment = runs->index(0, i).data(Qt::TextAlignmentRole).toInt();
            sides += QLatin1Char((alignment & Qt::AlignRight) != 0 ? 'r' : 'l');
        }
        QCOMPARE(sides, text("lllrrr"));
    }

    void fitsASmallScreen()
    {
        const QSize least = m_stage->window().minimumSizeHint();
        QVERIFY2(least.width() <= 640 && least.height() <= 400,
                 qPrintable(text("%1 x %2").arg(least.width()).arg(least.height())));
    }

    void timesAreShownWhileARunIsGoing()
    {
        startWaitingRun();
        QSignalSpy changes(m_stage->find<QTableView>("runList")->model(),
                           &QAbstractItemModel::dataChanged);
        QVERIFY(changes.wait(longTime));
        QCOMPARE(m_stage->cell(0, "Progress"), text("0 %"));
        QCOMPARE(m_stage->cell(0, "Remaining"), QString());
        QTRY_VERIFY_WITH_TIMEOUT(m_stage->cell(0, "Elapsed") != text("0:00"), longTime);
        const BoxAnswerer willing(WindowStage::pressing(Qt::Key_Return));
        m_stage->pressStop();
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(), text("stopped"), longTime);
        const QString ended = m_stage->cell(0, "Elapsed");
        changes.clear();
        QTest::qWait(1100);
        QCOMPARE(m_stage->cell(0, "Elapsed"), ended);
        QCOMPARE(changes.size(), 0);
    }

    void remainingTimeIsEstimatedOnceTheTotalMoves()
    {
        startWaitingRun("halfway");
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->cell(0, "Progress"), text("50 %"), longTime);
        QCOMPARE(m_stage->cell(0, "Remaining"), m_stage->cell(0, "Elapsed"));
        QVERIFY(!m_stage->cell(0, "Remaining").isEmpty());
        m_stage->endRuns(SIGTERM);
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(), text("stopped"), longTime);
        QCOMPARE(m_stage->cell(0, "Progress"), text("50 %"));
        QCOMPARE(m_stage->cell(0, "Remaining"), QString());
    }

    void progressIsNeverMoreThanAll()
    {
        startWaitingRun("beyond");
        QCOMPARE(m_stage->cell(0, "Progress"), text("50 %"));
    }

    void progressIsToldAsSoonAsItMoves()
    {
        m_stage->run(m_stage->model("m.nec", "halfway"));
        QCOMPARE(m_stage->state(), text("running"));
        const QSignalSpy changes(m_stage->window().findChild<WindowRun*>(), &WindowRun::changed);
        const QSignalSpy shown(m_stage->find<QTableView>("runList")->model(),
                               &QAbstractItemModel::dataChanged);
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->cell(0, "Progress"), text("50 %"), longTime);
        QCOMPARE(changes.size(), 1);
        QVERIFY(!shown.isEmpty());
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

    // Whoever looks at them waits for ever, and then no request to end is heard.
    void programStartsWhereTheLastFilesDoNotAnswer()
    {
        m_stage->close();
        Desk desk;
        const QString silent = desk.path("models/silent/m.nec");
        {
            QSettings settings(desk.path("user/kestdesk.ini"), QSettings::IniFormat);
            settings.setValue(text("session/model"), silent);
            settings.setValue(text("recentFiles/fileList"), QStringList{silent});
            settings.setValue(text("recentFiles/recentSession"), true);
        }
        desk.set("QT_QPA_PLATFORM", text("offscreen"));
        desk.set("LD_PRELOAD", text(KEST_SILENT_FILES));
        desk.set("ASAN_OPTIONS", text("verify_asan_link_order=0:detect_leaks=0"));
        QProcess program;
        desk.start(program, {});
        QVERIFY(!program.waitForFinished(5000));
        ::kill(static_cast<pid_t>(program.processId()), SIGTERM);
        QCOMPARE(Desk::resultOf(program).exitCode, 0);
        const QSettings settings(desk.path("user/kestdesk.ini"), QSettings::IniFormat);
        QCOMPARE(settings.value(text("recentFiles/fileList")).toStringList(), QStringList(silent));
    }
};

QTEST_MAIN(tst_main_window)

#include "tst_main_window.moc"
