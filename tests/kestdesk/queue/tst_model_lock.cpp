// SPDX-License-Identifier: MIT
#include "../support/RunStage.h"

#include <Leftovers.h>
#include <ModelLock.h>

class tst_model_lock : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<RunStage> m_stage;

    QStringList lockFiles() const
    {
        return QDir(m_stage->desk().path("user/locks")).entryList(QDir::Files);
    }

private Q_SLOTS:
    void init() { m_stage = std::make_unique<RunStage>(); }
    void cleanup() { m_stage.reset(); }

    void secondRunOfAModelIsNotReady()
    {
        const auto first = m_stage->makeRun("wait");
        m_stage->startWaiting(*first);
        const QString link = m_stage->desk().path("models/link.nec");
        QVERIFY(QFile::link(first->model(), link));
        for (const QString& model : {first->model(), link}) {
            const auto second = RunStage::makeRunOf(model);
            const RunSetup::Readiness readiness = m_stage->setUp(*second);
            QCOMPARE(readiness.obstacle, RunSetup::Obstacle::Busy);
            const QString process =
                text("process %1 on this machine").arg(QCoreApplication::applicationPid());
            QVERIFY2(readiness.problem.contains(process), qPrintable(readiness.problem));
        }
        const auto other = m_stage->makeRun("wait", "other.nec");
        QVERIFY(m_stage->setUp(*other).isReady());
    }

    void endedRunLetsTheNextOneBegin()
    {
        const auto first = m_stage->makeRun("valid");
        QSignalSpy ended(first.get(), &Run::ended);
        QVERIFY(m_stage->setUp(*first).isReady());
        QVERIFY(first->start());
        QTRY_COMPARE_WITH_TIMEOUT(ended.size(), 1, RunStage::longTime);
        QCOMPARE(lockFiles(), QStringList());
        QVERIFY(m_stage->setUp(*RunStage::makeRunOf(first->model())).isReady());
    }

    void runThatIsNotReadyKeepsNothing()
    {
        const auto run = RunStage::makeRunOf(m_stage->desk().path("models/gone.nec"));
        QVERIFY(!m_stage->setUp(*run).isReady());
        QCOMPARE(lockFiles(), QStringList());
    }

    void runThatIsGivenUpKeepsNothing()
    {
        const auto run = m_stage->makeRun("stubborn");
        m_stage->startWaiting(*run);
        QCOMPARE(lockFiles().size(), 1);
        run->giveUp();
        QCOMPARE(lockFiles(), QStringList());
    }

    void anotherProgramIsNamed()
    {
        const auto run = m_stage->makeRun("wait");
        QProcess process;
        m_stage->desk().start(process, {text("--non-interactive"), run->model()});
        QTRY_COMPARE_WITH_TIMEOUT(lockFiles().size(), 1, RunStage::longTime);
        const RunSetup::Readiness readiness = m_stage->setUp(*run);
        QCOMPARE(readiness.obstacle, RunSetup::Obstacle::Busy);
        QVERIFY(readiness.problem.contains(QString::number(process.processId())));
        process.kill();
        QVERIFY(process.waitForFinished(RunStage::longTime));
        QVERIFY(m_stage->setUp(*run).isReady()); // the lock of a dead process is none
    }

    void batchRefusesAModelThatIsBeingRun()
    {
        const auto run = m_stage->makeRun("wait");
        m_stage->startWaiting(*run);
        const Desk::Result result = m_stage->desk().run({text("--non-interactive"), run->model()});
        QCOMPARE(result.exitCode, 2);
        QVERIFY2(result.errors.contains(text("is being run already")), qPrintable(result.errors));
        QVERIFY(run->isRunning());
    }

    void whatAKilledProgramLeftIsRemoved()
    {
        const auto run = m_stage->makeRun("wait");
        QProcess process;
        m_stage->desk().start(process, {text("--non-interactive"), run->model()});
        QTRY_COMPARE_WITH_TIMEOUT(lockFiles().size(), 1, RunStage::longTime);
        Leftovers::remove();
        QCOMPARE(lockFiles().size(), 1);
        process.kill();
        QVERIFY(process.waitForFinished(RunStage::longTime));
        Leftovers::remove();
        QCOMPARE(lockFiles(), QStringList());
    }

    void withoutAFolderForLocksRunsGoOn()
    {
        writeFile(m_stage->desk().path("user/locks"), "a file in its place");
        const auto run = m_stage->makeRun("valid");
        QVERIFY(m_stage->setUp(*run).isReady());
    }
};

QTEST_MAIN(tst_model_lock)

#include "tst_model_lock.moc"
