// SPDX-License-Identifier: MIT
#include "RunEndings.h"
#include "RunStage.h"

#include <Descendants.h>
#include <ProgramName.h>
#include <SystemSkips.h>

#include <common_IProcessMessage.h>

namespace {

using State = Run::State;

/// Notes the signals of a run, in their order.
class Diary : public QObject
{
public:
    explicit Diary(const Run& run)
    {
        connect(&run, &Run::stateChanged, this, [this, &run](State state) {
            m_states.append(state);
            m_agree = m_agree && run.state() == state;
        });
        connect(&run, &Run::ended, this, [this, &run] {
            ++m_ends;
            m_stateAtEnd = run.state();
        });
    }

    const QVector<State>& states() const { return m_states; }
    int ends() const { return m_ends; }
    State stateAtEnd() const { return m_stateAtEnd; }

    /// Whether each signal came after its change.
    bool agrees() const { return m_agree; }

private:
    QVector<State> m_states;
    int m_ends = 0;
    State m_stateAtEnd = State::Waiting;
    bool m_agree = true;
};

State stateOf(RunOutcome::Kind kind)
{
    const State states[] = {State::Valid, State::Fault, State::NotStarted, State::Stopped};
    return states[static_cast<int>(kind)];
}

} // namespace

// The life of a run, which the terminal and the window show.
class tst_run : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<RunStage> m_stage;

    QStringList temporaryFiles() const
    {
        return QDir(m_stage->desk().path("user"))
            .entryList({text("gui_tmp_machfile*"), text(".gui_tmp_machfile*")},
                       QDir::AllEntries | QDir::Hidden);
    }

    static common_RunWrapper::RunOptions optionsOf(const RunEnding& ending)
    {
        return ending.isParallel() ? common_RunWrapper::Parallel : common_RunWrapper::RunOptions();
    }

    // As the terminal and the window do.
    void startOrRefuse(Run& run, common_RunWrapper::RunOptions options = {}) const
    {
        const RunSetup::Readiness readiness = m_stage->setUp(run, options);
        if (readiness.isReady()) {
            run.start();
        } else {
            run.refuse(readiness.problem);
        }
    }

private Q_SLOTS:
    void init()
    {
        m_stage.reset(); // a failed test left it
        m_stage = std::make_unique<RunStage>();
    }

    void cleanup()
    {
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->desk().processes(), QStringList(), 10000);
        QCOMPARE(temporaryFiles(), QStringList());
        m_stage.reset();
    }

    void outcomeFollowsFromTheEnd_data() { addRunEndings(); }

    void outcomeFollowsFromTheEnd()
    {
        QFETCH(int, row);
        const RunEnding& ending = runEndings().at(row);
        SKIP_ENDING_WITHOUT_STOP_REQUESTS(ending);
        prepareRunEnding(ending, m_stage->desk());
        const std::unique_ptr<Run> run = RunStage::makeRunOf(m_stage->desk().path("models/m.nec"));
        const Diary diary(*run);
        if (ending.stop == RunEnding::Stop::None) {
            startOrRefuse(*run, optionsOf(ending));
        } else {
            m_stage->startWaiting(*run);
            run->stop();
        }
        if (ending.stop == RunEnding::Stop::Forced) {
            Descendants::killAll();
        }
        QTRY_COMPARE_WITH_TIMEOUT(diary.ends(), 1, RunStage::longTime);
        QCOMPARE(run->outcome().kind(), ending.outcome);
        QCOMPARE(run->state(), stateOf(ending.outcome));
        const bool isKnown = ending.obstacle == RunEnding::Obstacle::NoMachinesFile;
        const bool isStarted = ending.outcome != RunOutcome::Kind::NotStarted;
        const QString reason = isStarted ? run->outcome().reason() : run->problem();
        QCOMPARE(reason.isEmpty(), *ending.meaning == '\0' || isKnown);
        QVERIFY2(isKnown || reason.contains(text(ending.meaning)), qPrintable(reason));
    }

    void statesChangeInOrderAndTheEndComesLast_data()
    {
        QTest::addColumn<int>("row");
        for (int row = 0; row < runEndings().size(); ++row) {
            const RunEnding& ending = runEndings().at(row);
            if (QByteArray("valid|fault|stopped|no model|component is no program")
                    .split('|')
                    .contains(ending.name)) {
                QTest::newRow(ending.name) << row;
            }
        }
    }

    void statesChangeInOrderAndTheEndComesLast()
    {
        QFETCH(int, row);
        const RunEnding& ending = runEndings().at(row);
        prepareRunEnding(ending, m_stage->desk());
        const std::unique_ptr<Run> run = RunStage::makeRunOf(m_stage->desk().path("models/m.nec"));
        QCOMPARE(run->state(), State::Waiting);
        const Diary diary(*run);
        QVector<State> expected;
        if (ending.stop == RunEnding::Stop::Asked) {
            m_stage->startWaiting(*run);
            run->stop();
            run->stop(); // once more changes nothing
            expected = {State::Running, State::Stopping};
        } else {
            startOrRefuse(*run);
            if (ending.outcome != RunOutcome::Kind::NotStarted) {
                expected = {State::Running};
            }
        }
        QTRY_COMPARE_WITH_TIMEOUT(diary.ends(), 1, RunStage::longTime);
        QCoreApplication::processEvents();
        QCOMPARE(diary.states(), expected + QVector<State>{stateOf(ending.outcome)});
        QCOMPARE(diary.stateAtEnd(), stateOf(ending.outcome));
        QVERIFY(diary.agrees());
        QCOMPARE(diary.ends(), 1);
        QVERIFY(!run->isRunning());
    }

    // The dialog of a run stops it without asking the run.
    void stopBySomebodyElseIsNoticed()
    {
        const std::unique_ptr<Run> run = m_stage->makeRun("stubborn");
        const Diary diary(*run);
        m_stage->startWaiting(*run);
        run->runner()->stopProcess();
        run->runner()->stopProcess();
        QCOMPARE(diary.states(), QVector<State>({State::Running, State::Stopping}));
        QVERIFY(run->isRunning());
        m_stage->endProcesses();
        QTRY_COMPARE_WITH_TIMEOUT(run->state(), State::Stopped, RunStage::longTime);
    }

    void runThatIsNotRunningIsNotStopped()
    {
        const std::unique_ptr<Run> run = m_stage->makeRun("valid");
        const Diary diary(*run);
        run->stop();
        run->giveUp();
        QCOMPARE(run->state(), State::Waiting);
        startOrRefuse(*run);
        QTRY_COMPARE_WITH_TIMEOUT(run->state(), State::Valid, RunStage::longTime);
        run->stop();
        run->giveUp();
        QCOMPARE(diary.states(), QVector<State>({State::Running, State::Valid}));
        QCOMPARE(diary.ends(), 1);
    }

    void setUpThatFailsLeavesNothingAndMayBeRepeated()
    {
        const QString machines = m_stage->desk().path("user/machines.kest");
        writeFile(machines, "# host:count\n");
        const std::unique_ptr<Run> run = m_stage->makeRun("valid");
        const Diary diary(*run);
        QVERIFY(m_stage->setUp(*run, common_RunWrapper::Parallel).obstacle ==
                RunSetup::Obstacle::NoHost);
        QCOMPARE(temporaryFiles(), QStringList());
        QCOMPARE(run->runner()->getTemporaryFilenames(), QStringList());
        QCOMPARE(run->state(), State::Waiting);
        writeFile(machines, "localhost:2\n");
        QVERIFY(m_stage->setUp(*run, common_RunWrapper::Parallel).isReady());
        QCOMPARE(temporaryFiles().size(), 2); // the copy, and whose it is
        QVERIFY(run->start());
        QTRY_COMPARE_WITH_TIMEOUT(run->state(), State::Valid, RunStage::longTime);
        QTRY_COMPARE(temporaryFiles(), QStringList());
        QCOMPARE(diary.ends(), 1);
    }

    void failedStartLeavesNothing()
    {
        writeFile(m_stage->desk().path("user/machines.kest"), "localhost:2\n");
        const std::unique_ptr<Run> run = m_stage->makeRun("valid");
        QVERIFY(m_stage->setUp(*run, common_RunWrapper::Parallel).isReady());
        const QString program = m_stage->desk().path("home/bin/runkest");
        QVERIFY(QFile::remove(program + text(ProgramName::suffix())));
        QVERIFY(!run->start());
        QCOMPARE(run->state(), State::NotStarted);
        QVERIFY2(run->problem().startsWith(text("cannot start ") + program),
                 qPrintable(run->problem()));
        QCOMPARE(temporaryFiles(), QStringList());
        QCOMPARE(run->elapsed(), qint64(0));
    }

    // Its end comes later, and no signal with it.
    void runThatIsGivenUpHasEnded()
    {
        SKIP_WITHOUT_STOP_REQUESTS();
        writeFile(m_stage->desk().path("user/machines.kest"), "localhost:2\n");
        const std::unique_ptr<Run> run = m_stage->makeRun("stubborn");
        const Diary diary(*run);
        m_stage->startWaiting(*run, common_RunWrapper::Parallel);
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->desk().processes().size(), 2, RunStage::longTime);
        run->stop();
        run->giveUp();
        QCOMPARE(run->state(), State::Stopped);
        QCOMPARE(run->problem(), text("runkest cannot be ended and goes on"));
        QCOMPARE(temporaryFiles(), QStringList());
        QCOMPARE(m_stage->desk().processes().size(), 2);
        m_stage->endProcesses();
        QTRY_VERIFY_WITH_TIMEOUT(!run->runner()->isRunning(), RunStage::longTime);
        QCOMPARE(diary.ends(), 1);
        QCOMPARE(diary.states(), QVector<State>({State::Running, State::Stopping, State::Stopped}));
    }

    void whatTheComponentReportsIsKept()
    {
        const std::unique_ptr<Run> run = m_stage->makeRun("beyond");
        const QSignalSpy progress(run.get(), &Run::progressed);
        m_stage->startWaiting(*run);
        QCOMPARE(run->totalPercentage(), 50);
        QCOMPARE(progress.size(), 1); // not for what is more than all
        QCOMPARE(run->percentage(), 0);
        run->stop();
        QTRY_COMPARE_WITH_TIMEOUT(run->state(), State::Stopped, RunStage::longTime);
        const qint64 duration = run->elapsed();
        QVERIFY(duration > 0);
        QTest::qWait(20);
        QCOMPARE(run->elapsed(), duration);
    }

    void filesAreNotedOnce()
    {
        const std::unique_ptr<Run> run = m_stage->makeRun("files");
        startOrRefuse(*run);
        QTRY_COMPARE_WITH_TIMEOUT(run->state(), State::Valid, RunStage::longTime);
        QCOMPARE(run->files(), QStringList({text("b.csv"), text("a.csv")}));
    }

    // As its dialog may.
    void runnerMayOutliveTheRun()
    {
        common_ActivePtr<ComponentRunner> runner;
        {
            const std::unique_ptr<Run> run = m_stage->makeRun("stubborn");
            m_stage->startWaiting(*run);
            runner = run->runner();
        }
        runner->stopProcess();
        QVERIFY(runner->isRunning());
        m_stage->endProcesses();
        QTRY_VERIFY_WITH_TIMEOUT(!runner->isRunning(), RunStage::longTime);
    }
};

QTEST_GUILESS_MAIN(tst_run)

#include "tst_run.moc"
