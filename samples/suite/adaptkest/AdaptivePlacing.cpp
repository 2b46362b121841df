// SPDX-License-Identifier: MIT
#include "AdaptivePlacing.h"

#include <QByteArray>

#include <algorithm>
#include <cmath>
#include <complex>

namespace suite {

namespace {

// A grid of so many times fewer points than the range's own: nothing wider is overlooked.
constexpr int coarseSteps = 5;
constexpr int leastCoarsePoints = 5;

// Halving an interval makes its error four times smaller. What is that close to the worst interval
// now would be the worst after it.
constexpr double halvingGain = 4;

constexpr double rounding = 1e-6;
constexpr double smallestImpedance = 1e-6; // ohm

struct Sample
{
    double place = 0;
    std::complex<double> impedance;
    double standingWaveRatio = 0;
};

// As many digits as tables of results have: what is solved is what they say.
double rounded(double frequency)
{
    return QByteArray::number(frequency, 'g', 10).toDouble();
}

// The size of the second derivative around the sample in the middle of three.
double bend(const QVector<Sample>& samples, int index)
{
    if (index < 1 || index + 1 >= samples.size()) {
        return 0;
    }
    const auto slope = [&samples](int left) {
        const Sample& from = samples.at(left);
        const Sample& to = samples.at(left + 1);
        return (to.impedance - from.impedance) / (to.place - from.place);
    };
    const double width = samples.at(index + 1).place - samples.at(index - 1).place;
    return 2 * std::abs(slope(index) - slope(index - 1)) / width;
}

// How far the curve is expected from the straight line over an interval, as a part of the
// impedance.
double distanceFromCurve(const QVector<Sample>& samples, int left)
{
    const Sample& from = samples.at(left);
    const Sample& to = samples.at(left + 1);
    const double width = to.place - from.place;
    const double strongest = std::max(bend(samples, left), bend(samples, left + 1));
    const double size = std::min(std::abs(from.impedance), std::abs(to.impedance));
    return strongest * width * width / 8 / std::max(size, smallestImpedance);
}

bool holdsResonance(const Sample& from, const Sample& to)
{
    const double left = from.impedance.imag();
    const double right = to.impedance.imag();
    return left != 0 && right != 0 && std::signbit(left) != std::signbit(right);
}

int bestMatch(const QVector<Sample>& samples)
{
    const auto best =
        std::min_element(samples.begin(), samples.end(), [](const Sample& a, const Sample& b) {
            return a.standingWaveRatio < b.standingWaveRatio;
        });
    return static_cast<int>(best - samples.begin());
}

} // namespace

AdaptivePlacing::AdaptivePlacing(const FrequencyRange& range, double tolerance)
    : m_range(range), m_tolerance(tolerance)
{}

QVector<double> AdaptivePlacing::next() const
{
    if (m_points.empty()) {
        return firstFrequencies();
    }
    QVector<Interval> wanted = intervals();
    std::stable_sort(wanted.begin(), wanted.end(),
                     [](const Interval& a, const Interval& b) { return a.need > b.need; });
    const double least = wanted.isEmpty() ? 1 : std::max(1.0, wanted.first().need / halvingGain);
    QVector<double> result;
    for (const Interval& interval : qAsConst(wanted)) {
        if (interval.need > least && count() + result.size() < most()) {
            result.append(interval.middle);
        }
    }
    std::sort(result.begin(), result.end());
    return result;
}

void AdaptivePlacing::add(double frequency, const Impedance& impedance)
{
    m_points[frequency] = impedance;
}

bool AdaptivePlacing::isFine() const
{
    const QVector<Interval> all = intervals();
    return std::all_of(all.begin(), all.end(),
                       [](const Interval& interval) { return interval.need <= 1; });
}

QVector<double> AdaptivePlacing::firstFrequencies() const
{
    QVector<double> result;
    if (most() <= leastCoarsePoints) {
        result = m_range.values();
        std::transform(result.begin(), result.end(), result.begin(), rounded);
        std::sort(result.begin(), result.end());
    } else {
        const int intervalCount =
            std::max(leastCoarsePoints - 1, (most() - 1 + coarseSteps - 1) / coarseSteps);
        const double first = place(m_range.lowest());
        const double width = place(m_range.highest()) - first;
        for (int i = 0; i <= intervalCount; ++i) {
            result.append(rounded(frequencyAt(first + width * i / intervalCount)));
        }
    }
    result.erase(std::unique(result.begin(), result.end()), result.end());
    return result;
}

// Those that can be halved.
QVector<AdaptivePlacing::Interval> AdaptivePlacing::intervals() const
{
    QVector<double> frequencies;
    QVector<Sample> samples;
    for (const auto& [frequency, impedance] : m_points) {
        frequencies.append(frequency);
        samples.append({place(frequency),
                        {impedance.resistance, impedance.reactance},
                        impedance.standingWaveRatio()});
    }
    const int best = bestMatch(samples);
    QVector<Interval> result;
    for (int left = 0; left + 1 < samples.size(); ++left) {
        Interval interval;
        interval.from = frequencies.at(left);
        interval.to = frequencies.at(left + 1);
        interval.middle = middle(interval.from, interval.to);
        interval.need = distanceFromCurve(samples, left) / m_tolerance;
        const bool isImportant = holdsResonance(samples.at(left), samples.at(left + 1)) ||
                                 left == best || left + 1 == best;
        const double width = samples.at(left + 1).place - samples.at(left).place;
        if (isImportant && width > step() * (1 + rounding)) {
            interval.need = std::max(interval.need, width / step());
        }
        if (interval.middle > interval.from && interval.middle < interval.to) {
            result.append(interval);
        }
    }
    return result;
}

double AdaptivePlacing::middle(double from, double to) const
{
    return rounded(frequencyAt((place(from) + place(to)) / 2));
}

// Where a frequency stands on the axis that the range divides evenly.
double AdaptivePlacing::place(double frequency) const
{
    return m_range.isMultiplying ? std::log(frequency) : frequency;
}

double AdaptivePlacing::frequencyAt(double place) const
{
    return m_range.isMultiplying ? std::exp(place) : place;
}

double AdaptivePlacing::step() const
{
    return (place(m_range.highest()) - place(m_range.lowest())) / std::max(1, most() - 1);
}

} // namespace suite
