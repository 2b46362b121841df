// SPDX-License-Identifier: MIT
#pragma once

#include "OptimisationState.h"
#include "SectionSearch.h"

#include <QMap>

#include <memory>

/// The search for the value with the least reactance, in rounds of runs: assigns values to runs,
/// and collects the results.
class TuningSearch
{
public:
    /// The question contains the value to tune, its range, and the number of evaluations at once,
    /// but no evaluations yet.
    explicit TuningSearch(OptimisationState question);

    /// Continues from the evaluations of an earlier search for the same value, up to that run.
    /// Evaluations at points that this search would not request itself are used at once and
    /// returned.
    QVector<Evaluation> restart(const OptimisationState& earlier, int lastRun);

    /// Plans the next round. False if nothing is left to evaluate, or after too many evaluations.
    bool planRound();

    /// The evaluations of this round that an earlier search has made already.
    [[nodiscard]] const QVector<Evaluation>& knownEvaluations() const { return m_known; }

    /// The runs of this round that are not done yet, with their values.
    [[nodiscard]] const QMap<int, double>& openRuns() const { return m_open; }

    /// Adds the result of an open run.
    Evaluation add(int run, const suite::Impedance& impedance);

    /// Ends a round that has no open runs.
    void endRound();

    /// The part of the work that is done, from 0 to 1.
    [[nodiscard]] double progress() const { return m_search->progress(); }

    /// The question and all evaluations so far.
    [[nodiscard]] const OptimisationState& state() const { return m_state; }

    /// The best evaluation so far; there must be one.
    [[nodiscard]] Evaluation best() const;

    /// Whether the reactance is almost 0 at the best value, or changes its sign close to it.
    [[nodiscard]] bool isResonance() const;

    /// Whether the best value is at an end of the range.
    [[nodiscard]] bool isAtEdge() const { return m_search->isAtEdge(); }

    /// Whether the search has ended by itself.
    [[nodiscard]] bool isConverged() const { return m_isConverged; }

    [[nodiscard]] int roundCount() const { return m_roundCount; }

    /// How many evaluations an earlier search has made.
    [[nodiscard]] int takenOverCount() const { return m_takenOverCount; }

private:
    void takeOver(const Evaluation& evaluation);

    OptimisationState m_state;
    std::unique_ptr<suite::SectionSearch> m_search;
    QMap<int, Evaluation> m_earlier; ///< that this search may request again
    QVector<Evaluation> m_known;
    QMap<int, double> m_open;
    int m_nextRun = 1;
    int m_roundStart = 0; ///< the first run of the round
    int m_roundCount = 0;
    int m_takenOverCount = 0;
    bool m_isConverged = false;
};
