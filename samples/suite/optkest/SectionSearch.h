// SPDX-License-Identifier: MIT
#pragma once

#include <QMap>
#include <QVector>

namespace suite {

/// Searches the minimum of a function with one minimum, in an interval that shrinks around the best
/// point. It gives the next points to evaluate and takes the results, in any order; results at
/// other points may be added, too.
class SectionSearch
{
public:
    virtual ~SectionSearch();

    /// The points to evaluate next, in ascending order; they may be evaluated at once. Empty if the
    /// minimum is known to a ten-thousandth of its value.
    [[nodiscard]] QVector<double> next() const;

    /// Adds the function's value at a point of the interval.
    void add(double point, double value);

    /// The best point so far; there must be one.
    [[nodiscard]] double best() const { return m_best; }

    /// The points that enclose the best one, or the interval's ends.
    [[nodiscard]] double low() const;
    [[nodiscard]] double high() const;

    /// Whether no point between the best one and an end of the interval was worse.
    [[nodiscard]] bool isAtEdge() const;

    /// The part of the work that is done, from 0 to 1.
    [[nodiscard]] double progress() const;

protected:
    SectionSearch(double low, double high);

    /// The first points in an interval, and the points in the gaps on both sides of the best point.
    [[nodiscard]] virtual QVector<double> firstPoints(double low, double high) const = 0;
    [[nodiscard]] virtual QVector<double> pointsAround(double low, double best,
                                                       double high) const = 0;

private:
    [[nodiscard]] double tolerance() const;
    [[nodiscard]] QVector<double> distinct(const QVector<double>& points) const;

    double m_lowEnd;
    double m_highEnd;
    double m_best = 0;
    QMap<double, double> m_values;
};

} // namespace suite
