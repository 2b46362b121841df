// SPDX-License-Identifier: MIT
#include "RunEndings.h"
#include "WindowTest.h"

#include <WindowRun.h>

#include <common_IIconUtility.h>
#include <common_ServiceOf.h>

// What the window shows of runs, and how they are stopped in it.
class tst_window_runs : public WindowTest
{
    Q_OBJECT

private:
    // Runs the model of the ending, and stops it as the user does.
    void endRun(const RunEnding& ending) const
    {
        prepareRunEnding(ending, m_stage->desk());
        m_stage->find<QCheckBox>("parallelBox")->setChecked(ending.isParallel());
        if (ending.stop != RunEnding::Stop::None) {
            startWaitingRun(ending.model);
            stopRun(ending.stop);
            return;
        }
        BoxAnswerer reader(WindowStage::pressing(Qt::Key_Escape));
        m_stage->run(m_stage->desk().path("models/m.nec"));
        const bool isStarted = ending.outcome != RunOutcome::Kind::NotStarted;
        QCOMPARE(reader.texts.size(), isStarted ? 0 : 1);
        QVERIFY2(isStarted ||
                     reader.texts.constFirst().contains(text(ending.meaning), Qt::CaseInsensitive),
                 qPrintable(reader.texts.join(QLatin1Char('\n'))));
    }

    void stopRun(RunEnding::Stop stop) const
    {
        if (stop == RunEnding::Stop::Forced) {
            QVERIFY(WindowStage::quits([this] {
                m_stage->window().quit();
                m_stage->window().quit();
            }));
        } else {
            const BoxAnswerer willing(WindowStage::agreeing());
            m_stage->pressStop();
        }
    }

    void stop(int run = 0) const
    {
        const BoxAnswerer willing(WindowStage::agreeing());
        m_stage->pressStop();
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(run), text("stopped"), longTime);
    }

    // A model is run once at a time.
    void endAllRuns() const
    {
        m_stage->endRuns(SIGKILL);
        for (int run = 0; run < m_stage->runCount(); ++run) {
            QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(run), Processes::killed().state, longTime);
        }
    }

private Q_SLOTS:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    void runIsStopped()
    {
        startWaitingRun();
        const BoxAnswerer willing(WindowStage::agreeing()); // on a slow machine the run is old
        QTest::mouseClick(m_stage->find<QPushButton>("stopButton"), Qt::LeftButton);
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(), text("stopped"), longTime);
        QCOMPARE(m_stage->outcomeText(), text("runkest of m.nec: stopped"));
        QVERIFY(!m_stage->find<QPushButton>("stopButton")->isEnabled());
        QVERIFY(!m_stage->find<QAction>("stopAction")->isEnabled());
    }

    void runThatIsStoppedInItsDialogIsStoppedInTheList()
    {
        startWaitingRun();
        const BoxAnswerer willing(WindowStage::agreeing());
        common_KestProcessDialog* const dialog = m_stage->dialogs().constFirst();
        QTest::mouseClick(WindowStage::inDialog<QPushButton>(dialog, "buttonStop"), Qt::LeftButton);
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(), text("stopped"), longTime);
    }

    void outcomeFollowsFromTheEnd_data() { addRunEndings(); }

    void outcomeFollowsFromTheEnd()
    {
        QFETCH(int, row);
        const RunEnding& ending = runEndings().at(row);
        SKIP_ENDING_WITHOUT_STOP_REQUESTS(ending);
        endRun(ending);
        const bool isStarted = ending.outcome != RunOutcome::Kind::NotStarted;
        const QString word = isStarted ? RunOutcome::word(ending.outcome) : text("not started");
        const QString reason = text(ending.shortReason);
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(),
                                  reason.isEmpty() ? word : word + text(", ") + reason, longTime);
        const QAbstractItemModel* const runs = m_stage->find<QTableView>("runList")->model();
        const QString tip = runs->index(0, 2).data(Qt::ToolTipRole).toString();
        const QString told = m_stage->outcomeText();
        if (!isStarted || ending.stop == RunEnding::Stop::Forced) {
            QVERIFY(isStarted || told.isEmpty()); // else the window shows how it closes
            QCOMPARE(tip, word);
        } else if (*ending.meaning == '\0') {
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
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(), Processes::killed().state, longTime);
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
        SKIP_WITHOUT_STOP_REQUESTS();
        startWaitingRun("stubborn");
        {
            const BoxAnswerer willing(WindowStage::agreeing());
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
        SKIP_WITHOUT_SIGNALS();
        QFETCH(QByteArray, word);
        startWaitingRun(word);
        m_stage->endRuns(SIGTERM);
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(), text("stopped"), longTime);
    }

    void runThatIsAskedToStopIsStoppedHoweverItEnds()
    {
        SKIP_WITHOUT_STOP_REQUESTS();
        startWaitingRun("stubborn");
        const BoxAnswerer willing(WindowStage::agreeing());
        m_stage->pressStop();
        m_stage->endRuns(SIGKILL);
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(), text("stopped"), longTime);
    }

    void runThatDoesNotStopIsShownSo()
    {
        SKIP_WITHOUT_STOP_REQUESTS();
        startWaitingRun("stubborn");
        const BoxAnswerer willing(WindowStage::agreeing());
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
        list->selectRow(m_stage->rowOf(0));
        stop();
        QCOMPARE(m_stage->state(1), text("running"));

        m_stage->find<QAction>("clearAction")->trigger();
        QCOMPARE(m_stage->runCount(), 1);
        QCOMPARE(m_stage->cell(0, "Model"), text("b.nec"));
        stop();
    }

    void newestRunIsStoppedUnlessAnotherOneThatIsGoingIsSelected()
    {
        startWaitingRun("wait", "a.nec");
        startWaitingRun("wait", "b.nec");
        startWaitingRun("wait", "c.nec");
        m_stage->askFromTheStart();
        BoxAnswerer willing(WindowStage::agreeing());
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

    void windowsOfRunsHaveTitlesOfTheirOwn()
    {
        SKIP_WITHOUT_ALL_CHARACTERS_IN_NAMES();
        startWaitingRun("wait", "a.nec");
        startWaitingRun("wait", "b[*].nec");
        endAllRuns();
        startWaitingRun("wait", "a.nec");
        endAllRuns();
        m_stage->find<QComboBox>("componentBox")->setCurrentText(text("prekest"));
        startWaitingRun("wait", "a.nec");
        QStringList titles;
        const QList<common_KestProcessDialog*> dialogs = m_stage->dialogs();
        for (const common_KestProcessDialog* const dialog : dialogs) {
            titles.append(dialog->windowTitle());
        }
        QCOMPARE(titles, QStringList({text("a.nec - runkest"), text("b[*][*].nec - runkest"),
                                      text("a.nec (2) - runkest"), text("a.nec - prekest")}));
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
        QCOMPARE(rows.constFirst().row(), m_stage->rowOf(1));
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

        const BoxAnswerer willing(WindowStage::agreeing());
        dialog->close();
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(), text("stopped"), longTime);
        QTRY_VERIFY(m_stage->dialogs().isEmpty());
        QApplication::setActiveWindow(&m_stage->window());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return,
                        Qt::KeyboardModifiers(modifiers));
        QTRY_VERIFY_WITH_TIMEOUT(m_stage->find<QDialog>("recordWindow") != nullptr, longTime);
        QTRY_COMPARE(m_stage->find<QDialog>("recordWindow")->windowTitle(), text("Run 1: m.nec"));
    }

    void windowAndStatesHaveTheirIcons()
    {
        QVERIFY(!m_stage->window().windowIcon().isNull());
        const QAbstractItemModel* const runs = m_stage->find<QTableView>("runList")->model();
        const auto shown = [this, runs](int run) {
            return runs->index(m_stage->rowOf(run), 2)
                .data(Qt::DecorationRole)
                .value<QIcon>()
                .pixmap(16)
                .toImage();
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
        stop(2);
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
        QCOMPARE(sides, text("lllrrrrllrl"));
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
        stop();
        const QString ended = m_stage->cell(0, "Elapsed");
        const auto isCalm = [&changes] {
            changes.clear();
            QTest::qWait(1100);
            return changes.isEmpty();
        };
        QVERIFY(QTest::qWaitFor(isCalm,
                                20000)); // the list changes once more when the record is complete
        QCOMPARE(m_stage->cell(0, "Elapsed"), ended);
    }

    void remainingTimeIsEstimatedWhileARunGetsOn()
    {
        startWaitingRun("steady");
        QTRY_VERIFY_WITH_TIMEOUT(m_stage->cell(0, "Remaining").startsWith(text("about ")),
                                 longTime);
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(), text("valid"), longTime);
        QCOMPARE(m_stage->cell(0, "Remaining"), QString());
    }

    void remainingTimeIsNotGuessed()
    {
        startWaitingRun("halfway");
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->cell(0, "Progress"), text("50 %"), longTime);
        QTest::qWait(3500);
        QCOMPARE(m_stage->cell(0, "Remaining"), QString());
        stop();
        QCOMPARE(m_stage->cell(0, "Progress"), text("50 %"));
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
        const Run& run = m_stage->window().findChild<WindowRun*>()->run();
        const QSignalSpy changes(&run, &Run::progressed);
        const QSignalSpy shown(m_stage->find<QTableView>("runList")->model(),
                               &QAbstractItemModel::dataChanged);
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->cell(0, "Progress"), text("50 %"), longTime);
        QCOMPARE(changes.size(), 1);
        QVERIFY(!shown.isEmpty());
    }
};

QTEST_MAIN(tst_window_runs)
#include "tst_window_runs.moc"
