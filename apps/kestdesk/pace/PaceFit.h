#pragma once

#include "PacePoint.h"

#include <QVector>

/// The pace of a run, which is the time that a unit of work takes, from the points it has reached.
///
/// Results of processes that work side by side come in bursts: those of a burst count as one point.
/// The start of a phase costs time of its own and is left out as soon as there is enough else. A
/// step many times as long as usual is a pause (a suspended computer, a stopped process) and counts
/// as no work. Later steps count more: a quarter of the run later a step has half of its weight.
class PaceFit
{
public:
    /// Whether the cost of the rest follows from how the cost has changed so far, as far as the
    /// steps show that, or is the same as now.
    enum class Growth { Ignored, Followed };

    /// The points ascend in both values.
    PaceFit(const QVector<PacePoint>& points, double end, Growth growth);

    /// How many steps the pace comes from. Without any the other values are 0.
    int steps() const { return m_steps; }

    /// Mean time of a unit of the work that is left, up to the end.
    double pace() const { return m_pace; }

    /// Standard error of the pace, as a part of it.
    double spread() const { return m_spread; }

    /// Usual and longest time between two points; pauses do not count.
    double usualStep() const { return m_usualStep; }
    double longestStep() const { return m_longestStep; }

private:
    struct Step
    {
        double middle = 0; ///< of the work
        double work = 0;
        double time = 0;
        double weight = 0;

        double pace() const { return time / work; }
    };

    static QVector<PacePoint> withoutBursts(const QVector<PacePoint>& points);
    static QVector<Step> stepsBetween(const QVector<PacePoint>& points);
    static QVector<Step> withoutPauses(const QVector<Step>& steps);
    static QVector<Step> groups(const QVector<Step>& steps);
    static double slope(const QVector<Step>& steps, double range);
    void fit(QVector<Step> steps, double range, double restMiddle, Growth growth);

    int m_steps = 0;
    double m_pace = 0;
    double m_spread = 0;
    double m_usualStep = 0;
    double m_longestStep = 0;
};
