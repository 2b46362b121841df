// SPDX-License-Identifier: MIT
#pragma once

#include "PaceExpectation.h"
#include "RunProgress.h"

#include <optional>

class PaceFit;

/// Estimates the remaining time of a run from its reported percentages and from earlier runs.
///
/// If there is a similar earlier run, its curve of the total percentage over time measures the
/// work, and its pace is the first estimate; this run's own steps have more weight. Otherwise the
/// work is measured by the percentage of the phase, if the phase is most of the work, or else by
/// the total percentage.
class RunPace
{
public:
    struct Estimate
    {
        double remaining = 0; ///< milliseconds
        double spread = 0;    ///< standard error of the pace, as a fraction of it

        /// Whether the estimate is accurate enough to be shown.
        bool isReliable() const;
    };

    void expect(PaceExpectation expectation);

    /// Adds a message of the run. The time is in milliseconds since the start.
    void add(qint64 time, common_IProcessMessage::Type type, const QString& text);

    /// The estimate at a time, in milliseconds since the start, not before that of the last
    /// message; nothing if there is no estimate or the run makes no progress.
    std::optional<Estimate> remaining(qint64 now) const;

private:
    std::optional<Estimate> fromEarlierRuns(qint64 now) const;
    std::optional<Estimate> fromPhase(qint64 now) const;
    std::optional<Estimate> fromTotal(qint64 now) const;
    std::optional<Estimate> extrapolated(const PaceFit& fit, const PacePoint& last, double end,
                                         double tail, qint64 now) const;
    bool isPhaseMostOfTheWork() const;
    double afterPhase() const;
    QVector<PacePoint> phaseWork() const;
    QVector<PacePoint> totalWork() const;
    double earlierTime(int total) const { return m_expectation.totalTimes[total]; }

    RunProgress m_progress;
    PaceExpectation m_expectation;
};
