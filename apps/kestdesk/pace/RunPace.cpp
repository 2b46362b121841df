// SPDX-License-Identifier: MIT
#include "RunPace.h"

#include "PaceFit.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

constexpr int complete = RunProgress::complete;
constexpr double mostSpread = 0.25;
constexpr int leastSteps = 3;
constexpr double leastPhase = 50;     // of the total: from here on the phase is most of the work
constexpr double mostAfterwards = 15; // of the total: more than this is not just writing results
constexpr double standstill = 5;      // of the longest step
constexpr double patience = 10000;    // milliseconds

} // namespace

bool RunPace::Estimate::isReliable() const
{
    return spread <= mostSpread;
}

void RunPace::expect(PaceExpectation expectation)
{
    m_expectation = std::move(expectation);
}

void RunPace::add(qint64 time, common_IProcessMessage::Type type, const QString& text)
{
    m_progress.add(time, type, text);
}

std::optional<RunPace::Estimate> RunPace::remaining(qint64 now) const
{
    if (m_expectation.basis == PaceExpectation::Basis::Alike) {
        return fromEarlierRuns(now);
    }
    if (m_expectation.isOpenEnded) {
        return std::nullopt;
    }
    return isPhaseMostOfTheWork() ? fromPhase(now) : fromTotal(now);
}

// Work is measured by the time it took in the earlier runs, so the expected pace is 1.
std::optional<RunPace::Estimate> RunPace::fromEarlierRuns(qint64 now) const
{
    const int total = m_progress.total();
    QVector<PacePoint> points = totalWork();
    for (PacePoint& point : points) {
        point.work = earlierTime(static_cast<int>(point.work));
    }
    const PaceFit fit(points, m_expectation.duration, PaceFit::Growth::Ignored);
    const double ownWeight = fit.steps() > 0 ? 1 / std::pow(fit.spread(), 2) : 0;
    const double earlierWeight = 1 / std::pow(m_expectation.spread, 2);
    const double ownPace = fit.steps() > 0 ? fit.pace() : 1;
    const double pace = std::exp(std::log(ownPace) * ownWeight / (ownWeight + earlierWeight));
    const double sinceLast = static_cast<double>(now) - points.last().time;
    const double step = pace * (earlierTime(qMin(total + 1, complete)) - earlierTime(total));
    const double rest = pace * (m_expectation.duration - earlierTime(total));
    if (rest <= 0 || sinceLast > standstill * qMax(step, fit.longestStep()) + patience) {
        return std::nullopt;
    }
    return Estimate{rest - qMin(sinceLast, qMax(step, 0.)),
                    1 / std::sqrt(ownWeight + earlierWeight)};
}

bool RunPace::isPhaseMostOfTheWork() const
{
    const double end = m_progress.phaseEnd();
    return m_progress.phasePoints().size() > 1 && end - m_progress.phaseBegin() >= leastPhase &&
           complete - end <= mostAfterwards;
}

std::optional<RunPace::Estimate> RunPace::fromPhase(qint64 now) const
{
    const QVector<PacePoint> points = phaseWork();
    return extrapolated(PaceFit(points, 1, PaceFit::Growth::Followed), points.last(), 1,
                        afterPhase(), now);
}

// Work before the first change of the total has no percentage.
std::optional<RunPace::Estimate> RunPace::fromTotal(qint64 now) const
{
    QVector<PacePoint> points = totalWork();
    points.removeFirst();
    if (points.isEmpty()) {
        return std::nullopt;
    }
    return extrapolated(PaceFit(points, complete, PaceFit::Growth::Followed), points.last(),
                        complete, 0, now);
}

std::optional<RunPace::Estimate> RunPace::extrapolated(const PaceFit& fit, const PacePoint& last,
                                                       double end, double tail, qint64 now) const
{
    const double sinceLast = static_cast<double>(now) - last.time;
    const bool isAtTheEnd = last.work >= end;
    const double longest = isAtTheEnd ? tail : fit.longestStep();
    if (fit.steps() < leastSteps || sinceLast > standstill * longest + patience) {
        return std::nullopt;
    }
    const double rest = fit.pace() * (end - last.work) + tail;
    const double step = isAtTheEnd ? tail : fit.usualStep();
    return Estimate{rest - qMin(sinceLast, qMin(step, rest)), fit.spread()};
}

// Without earlier runs, a percent after the phase is assumed to cost as much as a percent before
// it.
double RunPace::afterPhase() const
{
    const double end = m_progress.phaseEnd();
    if (m_expectation.basis == PaceExpectation::Basis::OtherSize) {
        return m_expectation.duration - earlierTime(static_cast<int>(end));
    }
    const int before = m_progress.phaseBegin();
    return before > 0 ? (complete - end) * static_cast<double>(m_progress.phaseBeginTime()) / before
                      : 0;
}

// The part of the phase that is done, from 0 to 1. Percentages are truncated to whole numbers: if
// they count a few frequencies, the number of frequencies is more exact.
QVector<PacePoint> RunPace::phaseWork() const
{
    QVector<PacePoint> points = m_progress.phasePoints();
    const int count = m_expectation.frequencies;
    const auto done = [count](const PacePoint& point) {
        return (static_cast<int>(point.work) * count + complete - 1) / complete;
    };
    const bool countsFrequencies =
        count > 0 && count <= complete &&
        std::all_of(points.begin(), points.end(), [&](const PacePoint& point) {
            return done(point) * complete / count == static_cast<int>(point.work);
        });
    for (PacePoint& point : points) {
        point.work =
            countsFrequencies ? static_cast<double>(done(point)) / count : point.work / complete;
    }
    return points;
}

// One point for each value of the total.
QVector<PacePoint> RunPace::totalWork() const
{
    const QVector<qint64>& times = m_progress.totalTimes();
    QVector<PacePoint> result;
    for (int total = 0; total <= m_progress.total(); ++total) {
        const PacePoint point{static_cast<double>(total), static_cast<double>(times[total])};
        if (!result.isEmpty() && result.last().time == point.time) {
            result.last() = point;
        } else {
            result.append(point);
        }
    }
    return result;
}
