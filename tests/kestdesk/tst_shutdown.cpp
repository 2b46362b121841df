// SPDX-License-Identifier: MIT
#include "RunStage.h"

#include <Shutdown.h>
#include <SystemSkips.h>

namespace {

using Phase = Shutdown::Phase;

} // namespace

// How runs, and what they have left behind, are ended.
class tst_shutdown : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<RunStage> m_stage;
    std::unique_ptr<Shutdown> m_shutdown;
    QStringList m_signals;

    std::unique_ptr<Run> startRun(const QByteArray& word, const char* name = "m.nec") const
    {
        std::unique_ptr<Run> run = m_stage->makeRun(word, name);
        m_shutdown->add(*run);
        m_stage->startWaiting(*run);
        return run;
    }

    void note(const char* name) { m_signals.append(text(name)); }

    QString signalsSoFar() const { return m_signals.join(QLatin1Char(' ')); }

private Q_SLOTS:
    void init()
    {
        m_shutdown.reset();
        m_stage.reset(); // a failed test left it
        m_stage = std::make_unique<RunStage>();
        m_shutdown = std::make_unique<Shutdown>();
        m_signals.clear();
        connect(m_shutdown.get(), &Shutdown::stopping, this, [this] { note("stopping"); });
        connect(m_shutdown.get(), &Shutdown::runsEnded, this, [this] { note("runsEnded"); });
        connect(m_shutdown.get(), &Shutdown::clearing, this, [this] { note("clearing"); });
        connect(m_shutdown.get(), &Shutdown::done, this, [this] { note("done"); });
    }

    void cleanup() { QTRY_COMPARE_WITH_TIMEOUT(m_stage->desk().processes(), QStringList(), 10000); }

    void withoutRunsItIsDoneAtOnce()
    {
        QVERIFY(m_shutdown->phase() == Phase::None);
        m_shutdown->request();
        QVERIFY(m_shutdown->isDone());
        QCOMPARE(signalsSoFar(), text("runsEnded done"));
        m_shutdown->request();
        m_shutdown->cancel();
        QVERIFY(m_shutdown->isDone());
        QCOMPARE(signalsSoFar(), text("runsEnded done"));
    }

    void runsThatHaveEndedDoNotCount()
    {
        SKIP_WITHOUT_STOP_REQUESTS();
        const std::unique_ptr<Run> valid = m_stage->makeRun("valid");
        const std::unique_ptr<Run> waiting = m_stage->makeRun("valid", "waiting.nec");
        m_shutdown->add(*valid);
        m_shutdown->add(*waiting);
        QVERIFY(m_stage->setUp(*valid).isReady());
        QVERIFY(valid->start());
        QTRY_COMPARE_WITH_TIMEOUT(valid->state(), Run::State::Valid, RunStage::longTime);
        QCoreApplication::processEvents();
        QCOMPARE(signalsSoFar(), QString()); // nothing was requested
        m_shutdown->request();
        QCOMPARE(signalsSoFar(), text("runsEnded done"));
    }

    void firstRequestStopsTheRuns()
    {
        const std::unique_ptr<Run> first = startRun("wait", "a.nec");
        const std::unique_ptr<Run> second = startRun("wait", "b.nec");
        m_shutdown->request();
        QVERIFY(m_shutdown->phase() == Phase::Stopping);
        QCOMPARE(first->state(), Run::State::Stopping);
        QCOMPARE(second->state(), Run::State::Stopping);
        QCOMPARE(signalsSoFar(), text("stopping"));
        QTRY_VERIFY_WITH_TIMEOUT(m_shutdown->isDone(), RunStage::longTime);
        QCOMPARE(first->state(), Run::State::Stopped);
        QCOMPARE(second->state(), Run::State::Stopped);
        QCOMPARE(m_signals.first(), text("stopping"));
        QCOMPARE(m_signals.at(1), text("runsEnded"));
        QCOMPARE(m_signals.last(), text("done"));
    }

    void secondRequestKillsTheRuns()
    {
        SKIP_WITHOUT_STOP_REQUESTS();
        const std::unique_ptr<Run> run = startRun("stubborn");
        m_shutdown->request();
        QTest::qWait(50);
        QCOMPARE(run->state(), Run::State::Stopping);
        m_shutdown->request();
        QVERIFY(m_shutdown->phase() == Phase::Killing);
        m_shutdown->request(); // once more changes nothing
        QTRY_VERIFY_WITH_TIMEOUT(m_shutdown->isDone(), RunStage::longTime);
        QCOMPARE(run->state(), Run::State::Stopped);
        QVERIFY(!run->runner()->isRunning()); // it was not given up
        QCOMPARE(run->problem(), QString());
    }

    void whatARunLeavesBehindIsEndedLast()
    {
        const std::unique_ptr<Run> run = startRun("forgetful");
        m_shutdown->request();
        QTRY_VERIFY_WITH_TIMEOUT(m_shutdown->isDone(), RunStage::longTime);
        QCOMPARE(signalsSoFar(), text("stopping runsEnded clearing done"));
        QCOMPARE(m_stage->desk().processes(), QStringList());
    }

    void cancelLeavesTheRestAlone()
    {
        const std::unique_ptr<Run> run = startRun("stubborn");
        m_shutdown->request();
        m_shutdown->cancel();
        QVERIFY(m_shutdown->phase() == Phase::None);
        m_stage->endProcesses();
        QTRY_COMPARE_WITH_TIMEOUT(run->state(), Run::State::Stopped, RunStage::longTime);
        QTest::qWait(50);
        QCOMPARE(signalsSoFar(), text("stopping"));
        m_shutdown->request();
        QTRY_VERIFY_WITH_TIMEOUT(m_shutdown->isDone(), RunStage::longTime);
    }

    void runThatStartsMeanwhileIsWaitedFor()
    {
        const std::unique_ptr<Run> first = startRun("wait", "a.nec");
        m_shutdown->request();
        const std::unique_ptr<Run> second = startRun("wait", "b.nec");
        QTRY_COMPARE_WITH_TIMEOUT(first->state(), Run::State::Stopped, RunStage::longTime);
        QTest::qWait(50);
        QCOMPARE(signalsSoFar(), text("stopping"));
        second->stop();
        QTRY_VERIFY_WITH_TIMEOUT(m_shutdown->isDone(), RunStage::longTime);
    }

    void runMayBeDeleted()
    {
        SKIP_WITHOUT_STOP_REQUESTS();
        std::unique_ptr<Run> run = startRun("wait");
        run.reset(); // its runner asks the component to terminate
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->desk().processes(), QStringList(), 10000);
        m_shutdown->request();
        QCOMPARE(signalsSoFar(), text("runsEnded done"));
    }
};

QTEST_GUILESS_MAIN(tst_shutdown)

#include "tst_shutdown.moc"
