// SPDX-License-Identifier: MIT
#include "../../support/SystemSkips.h"
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

    // A program makes the file of a lock before it writes its process into it.
    static bool isOwnerNamed(const QString& model)
    {
        return ModelLock(model).owner().startsWith(text("process "));
    }

    // What a power failure leaves of a lock.
    void writeEmptyLock(const QString& model, int age) const
    {
        ModelLock lock(model);
        QVERIFY(lock.take());
        QCOMPARE(lockFiles().size(), 1);
        QFile file(m_stage->desk().path("user/locks/") + lockFiles().constFirst());
        lock.release();
        QVERIFY(file.open(QIODevice::WriteOnly));
        QVERIFY(file.setFileTime(QDateTime::currentDateTime().addSecs(-age),
                                 QFileDevice::FileModificationTime));
    }

private Q_SLOTS:
    void init() { m_stage = std::make_unique<RunStage>(); }
    void cleanup() { m_stage.reset(); }

    void secondRunOfAModelIsNotReady_data()
    {
        QTest::addColumn<bool>("isLink");
        QTest::newRow("same path") << false;
        QTest::newRow("link") << true;
    }

    void secondRunOfAModelIsNotReady()
    {
        QFETCH(bool, isLink);
        if (isLink) {
            SKIP_WITHOUT_SYMBOLIC_LINKS();
        }
        const auto first = m_stage->makeRun("wait");
        m_stage->startWaiting(*first);
        const QString link = m_stage->desk().path("models/link.nec");
        QVERIFY(!isLink || QFile::link(first->model(), link));
        const auto second = RunStage::makeRunOf(isLink ? link : first->model());
        const RunSetup::Readiness readiness = m_stage->setUp(*second);
        QCOMPARE(readiness.obstacle, RunSetup::Obstacle::Busy);
        const QString process =
            text("process %1 on this machine").arg(QCoreApplication::applicationPid());
        QVERIFY2(readiness.problem.contains(process), qPrintable(readiness.problem));
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
        QTRY_VERIFY_WITH_TIMEOUT(isOwnerNamed(run->model()), RunStage::longTime);
        const RunSetup::Readiness readiness = m_stage->setUp(*run);
        QCOMPARE(readiness.obstacle, RunSetup::Obstacle::Busy);
        QVERIFY(readiness.problem.contains(QString::number(process.processId())));
        process.kill();
        QVERIFY(process.waitForFinished(RunStage::longTime));
        // The lock of a dead process is none. A component that it was just starting holds it for
        // another moment.
        QTRY_VERIFY_WITH_TIMEOUT(m_stage->setUp(*run).isReady(), RunStage::longTime);
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
        QTRY_VERIFY_WITH_TIMEOUT(isOwnerNamed(run->model()), RunStage::longTime);
        Leftovers::remove();
        QCOMPARE(lockFiles().size(), 1);
        process.kill();
        QVERIFY(process.waitForFinished(RunStage::longTime));
        const auto isRemoved = [this] {
            Leftovers::remove();
            return lockFiles().isEmpty();
        };
        QTRY_VERIFY_WITH_TIMEOUT(isRemoved(), RunStage::longTime);
    }

    void emptyLockCountsForAMoment_data()
    {
        QTest::addColumn<int>("age"); // s
        QTest::addColumn<bool>("isLocked");
        QTest::newRow("being made") << 1 << true;
        QTest::newRow("left") << 60 << false;
    }

    void emptyLockCountsForAMoment()
    {
        QFETCH(int, age);
        QFETCH(bool, isLocked);
        const auto run = m_stage->makeRun("valid");
        writeEmptyLock(run->model(), age);
        QCOMPARE(m_stage->setUp(*run).isReady(), !isLocked);
    }

    void emptyLockIsRemovedAfterAMoment_data() { emptyLockCountsForAMoment_data(); }

    void emptyLockIsRemovedAfterAMoment()
    {
        QFETCH(int, age);
        QFETCH(bool, isLocked);
        writeEmptyLock(m_stage->makeRun("valid")->model(), age);
        Leftovers::remove();
        QCOMPARE(lockFiles().size(), isLocked ? 1 : 0);
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
