// SPDX-License-Identifier: MIT
#pragma once

#include "PacePoint.h"

#include <QVector>

/// The pace of a run, the time that a unit of work takes, fitted to its progress points.
///
/// Results of parallel processes come in bursts: a burst counts as one point. The first step of a
/// phase includes set-up time and is ignored as soon as there are enough others. A step many times
/// as long as usual is a pause (a suspended computer, a stopped process) and is ignored. Later
/// steps have more weight: it doubles with each quarter of the run.
class PaceFit
{
public:
    /// Whether the pace of the remaining work continues the trend of the pace so far, or is assumed
    /// to stay as it is.
    enum class Growth { Ignored, Followed };

    /// Both values of the points ascend. `end` is the work of the whole run.
    PaceFit(const QVector<PacePoint>& points, double end, Growth growth);

    /// The number of evaluated steps. If it is 0, all other values are 0.
    int steps() const { return m_steps; }

    /// Mean time of a unit of the remaining work, in milliseconds.
    double pace() const { return m_pace; }

    /// Standard error of the pace, as a fraction of it.
    double spread() const { return m_spread; }

    /// Usual and longest time between two points, in milliseconds, without pauses.
    double usualStep() const { return m_usualStep; }
    double longestStep() const { return m_longestStep; }

private:
    struct Step
    {
        double middle = 0; ///< middle of the step, in units of work
        double work = 0;
        double time = 0;
        double weight = 0;

        double pace() const { return time / work; }
    };

    static double usualGap(const QVector<PacePoint>& points);
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
