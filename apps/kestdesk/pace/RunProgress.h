#pragma once

#include "PacePoint.h"

#include <common_IProcessMessage.h>

#include <QVector>

/// When a run reported which percentages: of the phase that it is in, and of all of its work.
class RunProgress
{
public:
    static constexpr int complete = 100;

    RunProgress();

    /// Takes a message of the run into account; those that are no percentages count for nothing.
    /// The time is in milliseconds since the start.
    void add(qint64 time, common_IProcessMessage::Type type, const QString& text);

    int total() const { return m_total; }

    /// Of the last change.
    qint64 time() const { return m_time; }

    /// When the total was that much or more for the first time, for 0 to 100; -1 where it was not
    /// yet.
    const QVector<qint64>& totalTimes() const { return m_totalTimes; }

    /// The points of the phase: its percentages.
    const QVector<PacePoint>& phasePoints() const { return m_phasePoints; }

    /// The total when the phase began, and when that was.
    int phaseBegin() const { return m_phaseBegin; }
    qint64 phaseBeginTime() const { return m_phaseBeginTime; }

    /// The total that the phase leads to, if it goes on as it does; 100 as long as that is open.
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
