// SPDX-License-Identifier: MIT
#include "TuningReport.h"
#include "TuningSearch.h"

#include <QTemporaryDir>
#include <QtTest>

#include <cmath>

using suite::FindingKind;
using suite::Impedance;

Q_DECLARE_METATYPE(OptimisationState)

namespace {

constexpr double resonance = 0.47;

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

OptimisationState question(int atOnce)
{
    OptimisationState result;
    result.fingerprint = text("model");
    result.name = text("LENGTH");
    result.low = 0.4;
    result.high = 0.6;
    result.frequency = 300;
    result.atOnce = atOnce;
    return result;
}

Impedance impedanceOf(double value)
{
    return {70, 1000 * (value - resonance)};
}

// Evaluates the open runs of the round, the last ones first.
QVector<Evaluation> finishRound(TuningSearch& search)
{
    QVector<Evaluation> made;
    const QList<int> runs = search.openRuns().keys();
    for (int i = runs.size() - 1; i >= 0; --i) {
        made.append(search.add(runs.at(i), impedanceOf(search.openRuns().value(runs.at(i)))));
    }
    search.endRound();
    return made;
}

int finishSearch(TuningSearch& search)
{
    int made = 0;
    while (search.planRound()) {
        made += finishRound(search).size();
    }
    return made;
}

} // namespace

// The rounds of an optimisation, and how one goes on from earlier runs.
class tst_tuning_search : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void resonanceIsFound_data()
    {
        QTest::addColumn<int>("atOnce");
        for (const int atOnce : {1, 2, 5}) {
            QTest::addRow("%d", atOnce) << atOnce;
        }
    }

    void resonanceIsFound()
    {
        QFETCH(int, atOnce);
        TuningSearch search(question(atOnce));
        const int made = finishSearch(search);
        QCOMPARE(search.state().evaluations.size(), made);
        QVERIFY(search.isConverged());
        QVERIFY(search.isResonance());
        QVERIFY(!search.isAtEdge());
        QVERIFY(qAbs(search.best().value - resonance) < 2e-4);
        QCOMPARE(search.best().impedance.reactance, impedanceOf(search.best().value).reactance);
        QCOMPARE(search.takenOverCount(), 0);
        QVERIFY(search.roundCount() * atOnce >= made);
        const suite::FindingList facts = TuningReport::facts(search);
        QVERIFY(facts.contains(FindingKind::TunedValue));
        QVERIFY(!facts.contains(FindingKind::NotConverged));
        QVERIFY(!facts.contains(FindingKind::NoTunedResonance));
        QVERIFY(!facts.contains(FindingKind::TunedAtEdge));
    }

    // Runs are numbered from 1 on, whenever they end.
    void runsKeepTheirNumbers()
    {
        TuningSearch search(question(3));
        QVERIFY(search.planRound());
        QCOMPARE(search.openRuns().keys(), QList<int>({1, 2, 3}));
        const QVector<Evaluation> made = finishRound(search);
        QCOMPARE(made.first().run, 3);
        QVERIFY(search.openRuns().isEmpty());
        const QVector<Evaluation> kept = search.state().evaluations;
        QCOMPARE(kept.size(), 3);
        QCOMPARE(kept.first().run, 1);
        QVERIFY(kept.first().value < kept.last().value);
        QVERIFY(search.planRound());
        QCOMPARE(search.openRuns().firstKey(), 4);
    }

    void edgeIsSeen()
    {
        OptimisationState narrow = question(1);
        narrow.low = 0.5;
        TuningSearch search(narrow);
        finishSearch(search);
        QVERIFY(search.isAtEdge());
        QVERIFY(!search.isResonance());
        QVERIFY(TuningReport::facts(search).contains(FindingKind::TunedAtEdge));
    }

    void restartMakesNoRunAgain_data()
    {
        QTest::addColumn<int>("atOnce");
        QTest::addColumn<int>("lastRun");
        QTest::newRow("none") << 1 << 0;
        QTest::newRow("one at once") << 1 << 5;
        QTest::newRow("two at once, whole rounds") << 2 << 4;
        QTest::newRow("two at once, half a round") << 2 << 3;
    }

    void restartMakesNoRunAgain()
    {
        QFETCH(int, atOnce);
        QFETCH(int, lastRun);
        TuningSearch whole(question(atOnce));
        const int all = finishSearch(whole);
        TuningSearch second(question(atOnce));
        QVERIFY(second.restart(whole.state(), lastRun).isEmpty());
        int known = 0;
        int made = 0;
        while (second.planRound()) {
            known += second.knownEvaluations().size();
            made += finishRound(second).size();
        }
        QCOMPARE(known, lastRun);
        QCOMPARE(made, all - lastRun);
        QCOMPARE(second.takenOverCount(), lastRun);
        QCOMPARE(second.best().value, whole.best().value);
        QCOMPARE(second.state().csv(), whole.state().csv());
    }

    void restartWithAnotherNumberAtOnceUsesWhatIsKnown()
    {
        TuningSearch first(question(1));
        finishSearch(first);
        TuningSearch second(question(4));
        QCOMPARE(second.restart(first.state(), 6).size(), 6);
        QCOMPARE(second.state().atOnce, OptimisationState::mixed);
        QCOMPARE(second.takenOverCount(), 6);
        QVERIFY(second.planRound());
        QVERIFY(second.knownEvaluations().isEmpty());
        QCOMPARE(second.openRuns().firstKey(), 7);
        for (const double value : second.openRuns()) {
            QVERIFY(qAbs(value - resonance) < 0.05);
        }
    }

    void stateOfAnotherQuestionIsRefused_data()
    {
        QTest::addColumn<OptimisationState>("asked");
        QTest::addColumn<int>("lastRun");
        QTest::addColumn<QString>("error");
        const QString other = text("the earlier runs were of another model, range or frequency");
        const auto changed = [](auto change) {
            OptimisationState result = question(1);
            change(result);
            return result;
        };
        QTest::newRow("same") << question(1) << 3 << QString();
        QTest::newRow("another number at once") << question(4) << 3 << QString();
        QTest::newRow("too few runs") << question(1) << 4 << text("the last earlier run is 3");
        QTest::newRow("model") << changed([](OptimisationState& state) {
            state.fingerprint = text("x");
        }) << 3 << other;
        QTest::newRow("value") << changed([](OptimisationState& state) { state.name = text("R"); })
                               << 3 << other;
        QTest::newRow("low") << changed([](OptimisationState& state) { state.low = 0.41; }) << 3
                             << other;
        QTest::newRow("high") << changed([](OptimisationState& state) { state.high = 0.61; }) << 3
                              << other;
        QTest::newRow("frequency")
            << changed([](OptimisationState& state) { state.frequency = 301; }) << 3 << other;
    }

    void stateOfAnotherQuestionIsRefused()
    {
        QFETCH(OptimisationState, asked);
        QFETCH(int, lastRun);
        QFETCH(QString, error);
        const QTemporaryDir folder;
        const QString path = folder.filePath(text("state.json"));
        OptimisationState earlier;
        QCOMPARE(earlier.readEarlier(path, asked, lastRun), text("there are no earlier runs"));
        TuningSearch search(question(3));
        QVERIFY(search.planRound());
        finishRound(search);
        QCOMPARE(search.state().write(path), QString());
        QCOMPARE(earlier.readEarlier(path, asked, lastRun), error);
    }
};

QTEST_GUILESS_MAIN(tst_tuning_search)
#include "tst_tuning_search.moc"
