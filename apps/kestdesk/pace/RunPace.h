#pragma once

#include "PaceExpectation.h"
#include "RunProgress.h"

#include <optional>

class PaceFit;

/// Estimates how long a run still takes, from the percentages that it reports and from what earlier
/// runs let expect.
///
/// Where an earlier run was alike, its curve of the total percentage is the measure of the work,
/// and its pace is taken over; each step of this run's own then counts more than it. Otherwise the
/// measure is the percentage of the phase, if that is most of the work, or else the total.
class RunPace
{
public:
    struct Estimate
    {
        double remaining = 0; ///< milliseconds
        double spread = 0;    ///< standard error of the pace, as a part of it

        /// Whether it is worth being shown.
        bool isReliable() const;
    };

    void expect(PaceExpectation expectation);

    /// Takes a message of the run into account. The time is in milliseconds since the start.
    void add(qint64 time, common_IProcessMessage::Type type, const QString& text);

    /// At a time not before the last message's; nothing when it cannot be told, or when the run
    /// does not get on.
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
