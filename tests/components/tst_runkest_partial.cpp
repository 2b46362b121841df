// SPDX-License-Identifier: MIT
#include "BrokenSweep.h"

#include <SystemSkips.h>
#include <Text.h>

#include <QDir>
#include <QtTest>

#include <memory>

// Runs that find a file of partial results, whatever it holds: nothing wrong is taken over, and
// nothing is lost.
class tst_runkest_partial : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void completeFileNeedsNoEngine();
    void otherSweepIsRefused_data();
    void otherSweepIsRefused();
    void damagedRowsAreComputedAgain_data();
    void damagedRowsAreComputedAgain();
    void withoutAFileTheRunIsOrdinary();
    void newSweepReplacesTheFileWithItsFirstResult();
    void foreignFileIsLeftAlone_data();
    void foreignFileIsLeftAlone();
    void fileOfARunningSweepIsNotUsed();

private:
    std::unique_ptr<BrokenSweep> m_sweep;
};

void tst_runkest_partial::init()
{
    m_sweep = std::make_unique<BrokenSweep>();
}

void tst_runkest_partial::cleanup()
{
    QVERIFY(m_sweep->waitForEnd());
}

// All was solved and the results could not be written.
void tst_runkest_partial::completeFileNeedsNoEngine()
{
    QVERIFY(m_sweep->keepSome());
    QProcess process;
    m_sweep->start(process, {text("--resume")}, m_sweep->slowEnvironment(0.1));
    QVERIFY(m_sweep->waitForRows(BrokenSweep::frequencies - 3)); // the last ones may come at once
    // A folder in the place of a result lets the run fail when it replaces that.
    QVERIFY(QDir(m_sweep->folder()).mkdir(text("m.csv")));
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.exitCode(), 1);
    QCOMPARE(m_sweep->keptRows(), BrokenSweep::frequencies);
    QVERIFY(QDir(m_sweep->folder()).rmdir(text("m.csv")));
    const SuiteResult rest =
        m_sweep->run({text("--resume")}, m_sweep->fakeEnvironment(text("crash")));
    QCOMPARE(rest.exitCode, 0);
    QCOMPARE(m_sweep->difference(), QString());
}

void tst_runkest_partial::otherSweepIsRefused_data()
{
    QTest::addColumn<QByteArray>("from");
    QTest::addColumn<QByteArray>("to");
    QTest::addColumn<QString>("reason");
    const auto model = text("it belongs to another model, or the cards were changed");
    const auto plan = text("it belongs to a sweep over other frequencies");
    QTest::newRow("card") << QByteArray("0.25 0.001") << QByteArray("0.25 0.002") << model;
    QTest::newRow("comment") << QByteArray("A dipole") << QByteArray("A monopole") << model;
    QTest::newRow("count") << QByteArray("FR 0 12") << QByteArray("FR 0 13") << plan;
    QTest::newRow("step") << QByteArray("290 5") << QByteArray("290 5.0000000001") << plan;
}

void tst_runkest_partial::otherSweepIsRefused()
{
    QFETCH(QByteArray, from);
    QFETCH(QByteArray, to);
    QFETCH(QString, reason);
    QVERIFY(m_sweep->keepSome());
    const QByteArray kept = m_sweep->partial();
    QByteArray changed = BrokenSweep::model();
    changed.replace(from, to);
    QVERIFY(changed != BrokenSweep::model());
    QVERIFY(!writeFile(m_sweep->folder(), text("m.nec"), changed).isEmpty());
    const SuiteResult refused = m_sweep->resume();
    QCOMPARE(refused.exitCode, 1);
    const QStringList errors = refused.bodies(text("error"));
    QCOMPARE(errors.size(), 1);
    QVERIFY2(errors.first().contains(text("'m.partial' cannot be resumed from, ") + reason),
             qPrintable(errors.first()));
    QCOMPARE(m_sweep->partial(), kept);

    QVERIFY(!writeFile(m_sweep->folder(), text("m.nec"), BrokenSweep::model()).isEmpty());
    QCOMPARE(m_sweep->resume().exitCode, 0);
    QCOMPARE(m_sweep->difference(), QString());
}

void tst_runkest_partial::damagedRowsAreComputedAgain_data()
{
    QTest::addColumn<int>("line");
    QTest::addColumn<int>("cutOff");
    QTest::newRow("a character changed") << BrokenSweep::headerLines + 1 << 0;
    QTest::newRow("all rows") << -1 << 0;
    QTest::newRow("the end cut off") << BrokenSweep::headerLines << 40;
    QTest::newRow("the line end missing") << BrokenSweep::headerLines << 1;
}

void tst_runkest_partial::damagedRowsAreComputedAgain()
{
    QFETCH(int, line);
    QFETCH(int, cutOff);
    QVERIFY(m_sweep->keepSome());
    QList<QByteArray> lines = m_sweep->partial().split('\n');
    for (int i = BrokenSweep::headerLines; i < lines.size() - 1; ++i) {
        if (cutOff == 0 && (line < 0 || line == i)) {
            lines[i][2] = lines.at(i).at(2) == '9' ? '8' : '9';
        }
    }
    const QByteArray damaged = lines.join('\n');
    QVERIFY(!writeFile(m_sweep->folder(), text("m.partial"), damaged.left(damaged.size() - cutOff))
                 .isEmpty());
    QProcess process;
    m_sweep->start(process, {text("--resume"), text("-np"), text("1")},
                   m_sweep->slowEnvironment(0.1));
    const int rows = m_sweep->keptRows();
    QVERIFY(m_sweep->waitForRows(rows + 2));
    process.kill();
    QVERIFY(process.waitForFinished());
    QVERIFY(process.readAllStandardOutput().contains(" damaged lines of 'm.partial' "));
    QVERIFY(m_sweep->waitForEnd());
    // What was cut off does not swallow the next row.
    const QByteArray cut = damaged.left(damaged.size() - cutOff);
    QVERIFY(m_sweep->partial().startsWith(cut.endsWith('\n') ? cut : cut + '\n'));
    QCOMPARE(m_sweep->resume().exitCode, 0);
    QCOMPARE(m_sweep->difference(), QString());
}

void tst_runkest_partial::withoutAFileTheRunIsOrdinary()
{
    const SuiteResult result = m_sweep->resume();
    QCOMPARE(result.exitCode, 0);
    QVERIFY(result.hasText(text("-*-notice-*-NOTE 305: there is nothing to resume, no "
                                "'m.partial', and the run starts from the beginning")));
    QCOMPARE(m_sweep->difference(), QString());
}

void tst_runkest_partial::newSweepReplacesTheFileWithItsFirstResult()
{
    SKIP_WITHOUT_TERMINATE();
    QVERIFY(m_sweep->keepSome());
    const QByteArray kept = m_sweep->partial();
    QProcess process;
    m_sweep->start(process, {}, m_sweep->fakeEnvironment(text("hang")));
    QVERIFY(m_sweep->waitForProcesses(2));
    process.terminate();
    QVERIFY(process.waitForFinished());
    const QByteArray output = process.readAllStandardOutput();
    QVERIFY(output.contains("NOTE 306: the results of an earlier run in 'm.partial' are replaced "
                            "when the first frequency is solved, --resume would take them over"));
    QVERIFY(!output.contains("NOTE 302"));
    QCOMPARE(m_sweep->partial(), kept);

    QCOMPARE(m_sweep->run({}, m_sweep->environment()).exitCode, 0);
    QCOMPARE(m_sweep->difference(), QString());
}

void tst_runkest_partial::foreignFileIsLeftAlone_data()
{
    QTest::addColumn<bool>("isResume");
    QTest::newRow("new sweep") << false;
    QTest::newRow("resume") << true;
}

void tst_runkest_partial::foreignFileIsLeftAlone()
{
    QFETCH(bool, isResume);
    QVERIFY(!writeFile(m_sweep->folder(), text("m.partial"), "my own notes\n").isEmpty());
    const SuiteResult result =
        isResume ? m_sweep->resume() : m_sweep->run({}, m_sweep->environment());
    QCOMPARE(result.exitCode, isResume ? 1 : 0);
    QVERIFY(result.hasText(text("it does not hold partial results")));
    QCOMPARE(result.bodies(text("warning")).size(), isResume ? 0 : 1);
    QCOMPARE(m_sweep->partial(), QByteArray("my own notes\n"));
}

void tst_runkest_partial::fileOfARunningSweepIsNotUsed()
{
    SKIP_WITHOUT_TERMINATE();
    QProcess process;
    m_sweep->start(process, {text("-np"), text("1")}, m_sweep->slowEnvironment(0.5));
    QVERIFY(m_sweep->waitForRows(1));
    const SuiteResult refused = m_sweep->resume();
    QCOMPARE(refused.exitCode, 1);
    QVERIFY(refused.hasText(text("another run of this model writes it")));
    const SuiteResult other = m_sweep->run({}, m_sweep->environment());
    QCOMPARE(other.exitCode, 0);
    QVERIFY(other.hasText(text("WARNING 3605: a stop of this run would keep no results, "
                               "'m.partial' cannot be used, another run of this model writes it")));
    QCOMPARE(process.state(), QProcess::Running);
    process.terminate();
    QVERIFY(process.waitForFinished());
    QVERIFY(process.readAllStandardOutput().contains("NOTE 302"));
    QCOMPARE(m_sweep->resume().exitCode, 0);
    QCOMPARE(m_sweep->difference(), QString());
}

QTEST_GUILESS_MAIN(tst_runkest_partial)
#include "tst_runkest_partial.moc"
