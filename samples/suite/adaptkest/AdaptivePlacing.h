// SPDX-License-Identifier: MIT
#pragma once

#include "EngineOutput.h"
#include "FrequencyRange.h"

#include <QVector>

#include <map>

namespace suite {

/// Decides at which frequencies of a range the impedance is computed. It begins with a coarse grid.
/// Then it halves the intervals in which the straight line between the ends is too far from the
/// curve, estimated by the curvature, and those with a resonance or beside the best match, until
/// they are as narrow as the range's own steps. It never needs more points than the range has. Its
/// choice depends only on the results, not on how many points are solved at once.
class AdaptivePlacing
{
public:
    /// The tolerance is the distance from the curve as a fraction of the impedance. The error of
    /// the reflection coefficient, on any line, is never larger than this fraction.
    AdaptivePlacing(const FrequencyRange& range, double tolerance);

    /// The frequencies of the next round in MHz, in ascending order; empty if no more are needed.
    /// All of them must be added before the next call.
    [[nodiscard]] QVector<double> next() const;

    void add(double frequency, const Impedance& impedance);

    /// The number of points, and its limit.
    [[nodiscard]] int count() const { return static_cast<int>(m_points.size()); }
    [[nodiscard]] int most() const { return m_range.count; }

    /// Whether no interval has to be halved.
    [[nodiscard]] bool isFine() const;

private:
    struct Interval
    {
        double from = 0;
        double to = 0;
        double middle = 0;
        double need = 0; ///< the interval is halved above 1
    };

    [[nodiscard]] QVector<double> firstFrequencies() const;
    [[nodiscard]] QVector<Interval> intervals() const;
    [[nodiscard]] double middle(double from, double to) const;
    [[nodiscard]] double place(double frequency) const;
    [[nodiscard]] double frequencyAt(double place) const;
    [[nodiscard]] double step() const;

    FrequencyRange m_range;
    double m_tolerance;
    std::map<double, Impedance> m_points;
};

} // namespace suite
