// SPDX-License-Identifier: MIT
#include "PaceFit.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double burstGap = 0.25; // of the usual gap: closer points count as one
constexpr double longGap = 30;    // of the mean of the others
constexpr int stepsWithoutStart = 4;
constexpr double pauseLength = 6;    // of a usual step
constexpr double pauseOfAverage = 5; // and of an average step, for very small steps
constexpr double halfWeight = 0.25;  // of the run
constexpr int mostGroups = 6;
constexpr int groupsOfGrowth = 5;
constexpr double usualGrowth = 0.25; // standard deviation of the pace's change over the run
constexpr double leastNoise = 0.02;  // of the pace
constexpr double leastChange = 0.3;
constexpr double mostChange = 4;
constexpr double leastVariation = 0.2; // of the pace, from step to step
constexpr double firstVariation = 0.5; // while there are too few steps to measure it

template <typename Steps, typename Value>
double weightedMean(const Steps& steps, Value value)
{
    double sum = 0;
    double weights = 0;
    for (const auto& step : steps) {
        sum += step.weight * value(step);
        weights += step.weight;
    }
    return sum / weights;
}

template <typename Steps>
double medianPace(const Steps& steps)
{
    QVector<double> paces;
    std::transform(steps.begin(), steps.end(), std::back_inserter(paces),
                   [](const auto& step) { return step.pace(); });
    const auto middle = paces.begin() + paces.size() / 2;
    std::nth_element(paces.begin(), middle, paces.end());
    return *middle;
}

} // namespace

PaceFit::PaceFit(const QVector<PacePoint>& points, double end, Growth growth)
{
    QVector<Step> steps = stepsBetween(withoutBursts(points));
    if (steps.size() > stepsWithoutStart) {
        steps.removeFirst();
    }
    steps = withoutPauses(steps);
    if (!steps.isEmpty()) {
        const double last = points.last().work;
        fit(steps, end - points.first().work, (last + end) / 2, growth);
    }
}

// Mean time between two points, without the few gaps that are many times as long.
double PaceFit::usualGap(const QVector<PacePoint>& points)
{
    QVector<double> gaps;
    double sum = 0;
    for (int i = 1; i < points.size(); ++i) {
        gaps.append(points[i].time - points[i - 1].time);
        sum += gaps.last();
    }
    std::sort(gaps.begin(), gaps.end());
    while (gaps.size() > 1 &&
           gaps.last() > longGap * (sum - gaps.last()) / static_cast<double>(gaps.size() - 1)) {
        sum -= gaps.takeLast();
    }
    return gaps.isEmpty() ? 0 : sum / gaps.size();
}

// Keeps the last point of a burst: all work of the burst is done then.
QVector<PacePoint> PaceFit::withoutBursts(const QVector<PacePoint>& points)
{
    QVector<PacePoint> result;
    const double least = burstGap * usualGap(points);
    for (const PacePoint& point : points) {
        const bool isNear = !result.isEmpty() && (point.time - result.last().time < least ||
                                                  point.work <= result.last().work);
        if (isNear) {
            result.last() = point;
        } else {
            result.append(point);
        }
    }
    return result;
}

QVector<PaceFit::Step> PaceFit::stepsBetween(const QVector<PacePoint>& points)
{
    QVector<Step> result;
    for (int i = 1; i < points.size(); ++i) {
        const PacePoint& from = points[i - 1];
        const PacePoint& to = points[i];
        if (to.work > from.work && to.time > from.time) {
            result.append({(from.work + to.work) / 2, to.work - from.work, to.time - from.time, 0});
        }
    }
    return result;
}

QVector<PaceFit::Step> PaceFit::withoutPauses(const QVector<Step>& steps)
{
    if (steps.size() < stepsWithoutStart) {
        return steps;
    }
    const double usual = medianPace(steps);
    double work = 0;
    for (const Step& step : steps) {
        work += step.work;
    }
    const double average = usual * work / steps.size();
    QVector<Step> result;
    std::copy_if(steps.begin(), steps.end(), std::back_inserter(result), [&](const Step& step) {
        return step.time <= pauseLength * usual * step.work + pauseOfAverage * average;
    });
    return result;
}

// The load of a computer changes more slowly than steps follow each other, so the errors of
// neighbouring steps are correlated. Groups of steps decide whether the paces follow a line.
QVector<PaceFit::Step> PaceFit::groups(const QVector<Step>& steps)
{
    QVector<Step> result;
    const int count = qMin(mostGroups, steps.size());
    int next = 0;
    for (int group = 1; group <= count; ++group) {
        Step sum;
        double weightedMiddle = 0;
        for (; next < steps.size() * group / count; ++next) {
            sum.work += steps[next].work;
            sum.time += steps[next].time;
            sum.weight += steps[next].weight;
            weightedMiddle += steps[next].work * steps[next].middle;
        }
        sum.middle = weightedMiddle / sum.work;
        result.append(sum);
    }
    return result;
}

// How the pace changes with the work: the slope of a straight line, shrunk towards 0 by the usual
// variation, because few or uneven steps determine it badly.
double PaceFit::slope(const QVector<Step>& steps, double range)
{
    const QVector<Step> all = groups(steps);
    if (all.size() < groupsOfGrowth) {
        return 0;
    }
    const double mean = weightedMean(all, [](const Step& step) { return step.pace(); });
    const double middle = weightedMean(all, [](const Step& step) { return step.middle; });
    const double square =
        weightedMean(all, [&](const Step& step) { return std::pow(step.middle - middle, 2); });
    const double product = weightedMean(
        all, [&](const Step& step) { return (step.middle - middle) * (step.pace() - mean); });
    const double noise =
        weightedMean(all, [&](const Step& step) { return std::pow(step.pace() - mean, 2); });
    const double rest = qMax(noise - product * product / square, std::pow(leastNoise * mean, 2));
    const double usual = std::pow(usualGrowth * mean / range, 2);
    return product / (square + rest / usual / (all.size() - 2));
}

void PaceFit::fit(QVector<Step> steps, double range, double restMiddle, Growth growth)
{
    const double last = steps.last().middle;
    for (Step& step : steps) {
        step.weight = step.work * std::exp2((step.middle - last) / (halfWeight * range));
    }
    m_steps = steps.size();
    const double mean = weightedMean(steps, [](const Step& step) { return step.pace(); });
    const double middle = weightedMean(steps, [](const Step& step) { return step.middle; });
    const double noise =
        weightedMean(steps, [&](const Step& step) { return std::pow(step.pace() - mean, 2); });
    const double ahead = qMin(restMiddle - middle, last - steps.first().middle);
    const double change = growth == Growth::Followed ? slope(steps, range) * ahead : 0;
    m_pace = qBound(leastChange * mean, mean + change, mostChange * mean);
    const double variation = m_steps < stepsWithoutStart
                                 ? firstVariation
                                 : qMax(leastVariation, std::sqrt(noise) / mean);
    m_spread = variation / std::sqrt(m_steps);
    double time = 0;
    for (const Step& step : qAsConst(steps)) {
        time += step.time;
        m_longestStep = qMax(m_longestStep, step.time);
    }
    m_usualStep = time / m_steps;
}
