// SPDX-License-Identifier: MIT
#include "TuningSearch.h"

#include "GoldenSection.h"
#include "ParallelSection.h"

#include <utility>

using namespace suite;

namespace {

constexpr int mostEvaluations = 500;

// Below this, in ohm, a reactance counts as none.
constexpr double noReactance = 1;

std::unique_ptr<SectionSearch> makeSearch(const OptimisationState& question)
{
    if (question.atOnce > 1) {
        return std::make_unique<ParallelSection>(question.low, question.high, question.atOnce);
    }
    return std::make_unique<GoldenSection>(question.low, question.high);
}

} // namespace

TuningSearch::TuningSearch(OptimisationState question)
    : m_state(std::move(question)), m_search(makeSearch(m_state))
{}

QVector<Evaluation> TuningSearch::restart(const OptimisationState& earlier, int lastRun)
{
    QVector<Evaluation> used;
    for (const Evaluation& evaluation : earlier.evaluations) {
        if (evaluation.run <= lastRun) {
            m_earlier.insert(evaluation.run, evaluation);
        }
    }
    if (m_earlier.isEmpty() || earlier.atOnce == m_state.atOnce) {
        return used;
    }
    // Another number at once asks for other points, but learns from these all the same.
    for (const Evaluation& evaluation : qAsConst(m_earlier)) {
        takeOver(evaluation);
        m_search->add(evaluation.value, evaluation.objective());
        used.append(evaluation);
    }
    m_nextRun = lastRun + 1;
    m_earlier.clear();
    m_state.atOnce = OptimisationState::mixed;
    return used;
}

bool TuningSearch::planRound()
{
    const QVector<double> points = m_search->next();
    const int left = mostEvaluations - m_state.evaluations.size();
    m_isConverged = points.isEmpty();
    if (points.isEmpty() || left <= 0) {
        return false;
    }
    ++m_roundCount;
    m_roundStart = m_nextRun;
    m_known.clear();
    const QVector<double> tried = points.mid(0, left);
    for (const double point : tried) {
        const int run = m_nextRun++;
        const auto earlier = m_earlier.constFind(run);
        if (earlier != m_earlier.constEnd() && earlier->value == point) {
            takeOver(*earlier);
            m_known.append(*earlier);
        } else {
            m_open.insert(run, point);
        }
    }
    return true;
}

Evaluation TuningSearch::add(int run, const Impedance& impedance)
{
    const Evaluation evaluation = {run, m_open.take(run), impedance};
    m_state.add(evaluation);
    return evaluation;
}

void TuningSearch::endRound()
{
    for (const Evaluation& evaluation : qAsConst(m_state.evaluations)) {
        if (evaluation.run >= m_roundStart) {
            m_search->add(evaluation.value, evaluation.objective());
        }
    }
}

void TuningSearch::takeOver(const Evaluation& evaluation)
{
    m_state.add(evaluation);
    ++m_takenOverCount;
}

Evaluation TuningSearch::best() const
{
    for (const Evaluation& evaluation : m_state.evaluations) {
        if (evaluation.value == m_search->best()) {
            return evaluation;
        }
    }
    return {};
}

bool TuningSearch::isResonance() const
{
    bool isNegative = false;
    bool isPositive = false;
    for (const Evaluation& evaluation : m_state.evaluations) {
        if (evaluation.value >= m_search->low() && evaluation.value <= m_search->high()) {
            isNegative = isNegative || evaluation.impedance.reactance <= 0;
            isPositive = isPositive || evaluation.impedance.reactance >= 0;
        }
    }
    return best().objective() <= noReactance || (isNegative && isPositive);
}
