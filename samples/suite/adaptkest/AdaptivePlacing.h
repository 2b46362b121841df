#pragma once

#include "EngineOutput.h"
#include "FrequencyRange.h"

#include <QVector>

#include <map>

namespace suite {

/// Decides at which frequencies of a range the impedance is computed. It begins with a
/// coarse grid. Then it halves the intervals whose straight line between the ends is too far from
/// the curve, as the curvature tells, and those that hold a resonance or touch the best
/// match, until they are as narrow as the range's own steps. It never asks for more points than the
/// range has. What it asks for depends on the results alone, not on how many are solved at once.
class AdaptivePlacing
{
public:
    /// The tolerance is the distance from the curve as a part of the impedance. A change of the
    /// reflection coefficient, on whatever line, is never larger than that part.
    AdaptivePlacing(const FrequencyRange& range, double tolerance);

    /// The frequencies of the next round in MHz, in rising order; empty when no more are
    /// needed. All of them must be added before the next call.
    [[nodiscard]] QVector<double> next() const;

    void add(double frequency, const Impedance& impedance);

    /// How many points there are, and how many there may be at most.
    [[nodiscard]] int count() const { return static_cast<int>(m_points.size()); }
    [[nodiscard]] int most() const { return m_range.count; }

    /// True when no interval needs to be halved.
    [[nodiscard]] bool isFine() const;

private:
    struct Interval
    {
        double from = 0;
        double to = 0;
        double middle = 0;
        double need = 0; ///< above 1 it is to be halved
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
