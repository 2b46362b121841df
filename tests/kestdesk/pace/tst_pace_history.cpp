// SPDX-License-Identifier: MIT
#include "PlayedRun.h"

#include <PaceHistory.h>
#include <RecordJournal.h>
#include <RunArchive.h>
#include <RunSize.h>

#include <QtTest>

namespace {

using Basis = PaceExpectation::Basis;

RunRecord usualRecord()
{
    RunRecord record;
    record.component = QStringLiteral("runkest");
    record.model = QStringLiteral("/m.nec");
    record.host = QStringLiteral("here");
    record.started = QDateTime::currentDateTimeUtc();
    record.state = RunRecord::State::Valid;
    return record;
}

PlayedRun steadyRun(double step)
{
    return PlayedRun(100, [step](double /*done*/) { return step; });
}

} // namespace

class tst_pace_history : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<QTemporaryDir> m_folder;

    RunArchive archive() const { return RunArchive(m_folder->filePath(QStringLiteral("runs"))); }

    void keep(RunRecord record, const PlayedRun& run) const
    {
        const RunArchive::Addition added = archive().add(record, QString());
        QVERIFY2(added.number > 0, qPrintable(added.problem));
        RecordJournal journal(added.folder, 1 << 24);
        record.duration = run.duration();
        record.ended = record.started.addMSecs(run.duration());
        QVERIFY(journal.write(run.messages()));
        QVERIFY(journal.finish(record));
    }

    PaceExpectation expectation(const RunRecord& record = usualRecord()) const
    {
        const std::atomic<bool> isCancelled(false);
        return PaceHistory::expectation(archive(), RunSize::of(record), isCancelled);
    }

private Q_SLOTS:
    void init() { m_folder = std::make_unique<QTemporaryDir>(); }

    void emptyArchiveTellsNothing() { QVERIFY(expectation().basis == Basis::None); }

    void repetitionTellsTheCourse()
    {
        const PlayedRun run = steadyRun(1000);
        keep(usualRecord(), run);
        const PaceExpectation found = expectation();
        QVERIFY(found.basis == Basis::Alike);
        QCOMPARE(found.duration, static_cast<double>(run.duration()));
        QCOMPARE(found.totalTimes, run.expectation().totalTimes);
        QVERIFY(found.spread <= 0.25);
    }

    void runsThatAreAlikeAreAveraged()
    {
        keep(usualRecord(), steadyRun(1000));
        keep(usualRecord(), steadyRun(3000));
        QCOMPARE(expectation().duration, static_cast<double>(steadyRun(2000).duration()));
    }

    void onlyTheNewestAreAveraged()
    {
        keep(usualRecord(), steadyRun(50000));
        for (int i = 0; i < 5; ++i) {
            keep(usualRecord(), steadyRun(1000));
        }
        QCOMPARE(expectation().duration, static_cast<double>(steadyRun(1000).duration()));
    }

    void betterMatchIsPreferred()
    {
        keep(usualRecord(), steadyRun(1000));
        RunRecord other = usualRecord();
        other.host = QStringLiteral("there");
        keep(other, steadyRun(9000));
        QCOMPARE(expectation().duration, static_cast<double>(steadyRun(1000).duration()));
    }

    void runOfAnotherMachineIsUnsure()
    {
        RunRecord other = usualRecord();
        other.host = QStringLiteral("there");
        keep(other, steadyRun(1000));
        QVERIFY(expectation().basis == Basis::Alike);
        QVERIFY(expectation().spread > 0.5);
    }

    void otherModelTellsTheEndOnly()
    {
        RunRecord other = usualRecord();
        other.model = QStringLiteral("/other.nec");
        keep(other, steadyRun(1000));
        QVERIFY(expectation().basis == Basis::OtherSize);
    }

    void runsThatTellNothingAreLeftOut_data()
    {
        QTest::addColumn<QString>("component");
        QTest::addColumn<int>("state");
        QTest::addColumn<QStringList>("arguments");
        const int valid = static_cast<int>(RunRecord::State::Valid);
        // clang-format off
        QTest::newRow("fault")     << "runkest" << static_cast<int>(RunRecord::State::Fault)   << QStringList();
        QTest::newRow("stopped")   << "runkest" << static_cast<int>(RunRecord::State::Stopped) << QStringList();
        QTest::newRow("component") << "prekest" << valid                                       << QStringList();
        QTest::newRow("continued") << "runkest" << valid << QStringList{QStringLiteral("--resume")};
        // clang-format on
    }

    void runsThatTellNothingAreLeftOut()
    {
        QFETCH(QString, component);
        QFETCH(int, state);
        QFETCH(QStringList, arguments);
        RunRecord record = usualRecord();
        record.component = component;
        record.state = static_cast<RunRecord::State>(state);
        record.arguments = arguments;
        keep(record, steadyRun(1000));
        QVERIFY(expectation().basis == Basis::None);
    }

    void continuedRunExpectsNothing()
    {
        keep(usualRecord(), steadyRun(1000));
        RunRecord continued = usualRecord();
        continued.arguments = QStringList{QStringLiteral("--restart")};
        QVERIFY(expectation(continued).basis == Basis::None);
    }

    void adaptiveModelHasAnOpenEnd()
    {
        RunSize size = RunSize::of(usualRecord());
        size.isAdaptive = true;
        const std::atomic<bool> isCancelled(false);
        QVERIFY(PaceHistory::expectation(archive(), size, isCancelled).isOpenEnded);
    }
};

QTEST_GUILESS_MAIN(tst_pace_history)

#include "tst_pace_history.moc"
