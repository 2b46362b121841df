// SPDX-License-Identifier: MIT
#pragma once

#include "PacePoint.h"

#include <common_IProcessMessage.h>

#include <QVector>

/// The course of a run's percentages: of its current phase, and of all of its work.
class RunProgress
{
public:
    static constexpr int complete = 100;

    RunProgress();

    /// Adds a message of the run; messages other than percentages are ignored. The time is in
    /// milliseconds since the start.
    void add(qint64 time, common_IProcessMessage::Type type, const QString& text);

    int total() const { return m_total; }

    /// Time of the last change, in milliseconds since the start.
    qint64 time() const { return m_time; }

    /// When the total first reached each percentage from 0 to 100, in milliseconds since the start;
    /// -1 if it has not yet.
    const QVector<qint64>& totalTimes() const { return m_totalTimes; }

    /// The points of the current phase; work is its percentage.
    const QVector<PacePoint>& phasePoints() const { return m_phasePoints; }

    /// The total percentage and the time, in milliseconds since the start, at which the phase
    /// began.
    int phaseBegin() const { return m_phaseBegin; }
    qint64 phaseBeginTime() const { return m_phaseBeginTime; }

    /// The extrapolated total percentage at the end of the phase; 100 while it is unknown.
    double phaseEnd() const;

private:
    void addPhase(qint64 time, int percentage);
    void addTotal(qint64 time, int percentage);

    int m_phase = 0;
    int m_total = 0;
    qint64 m_time = 0;
    QVector<qint64> m_totalTimes;
    QVector<PacePoint> m_phasePoints;
    int m_phaseBegin = 0;
    qint64 m_phaseBeginTime = 0;
    int m_phaseAtTotal = 0; ///< the phase when the total changed
};
