// SPDX-License-Identifier: MIT
#include "RunProgress.h"

#include "RunOutcome.h"

#include <algorithm>

RunProgress::RunProgress() : m_totalTimes(complete + 1, -1), m_phasePoints({PacePoint{}})
{
    m_totalTimes[0] = 0;
}

void RunProgress::add(qint64 time, common_IProcessMessage::Type type, const QString& text)
{
    if (type == common_IProcessMessage::Percentage) {
        addPhase(time, RunOutcome::percentage(text, m_phase));
    } else if (type == common_IProcessMessage::TotalPercentage) {
        addTotal(time, RunOutcome::percentage(text, m_total));
    }
}

// A phase begins where the percentage falls.
void RunProgress::addPhase(qint64 time, int percentage)
{
    if (percentage == m_phase) {
        return;
    }
    if (percentage < m_phase) {
        m_phasePoints.clear();
        m_phaseBegin = m_total;
        m_phaseBeginTime = time;
        m_phaseAtTotal = 0;
    }
    m_phase = percentage;
    m_phasePoints.append({static_cast<double>(percentage), static_cast<double>(time)});
    m_time = time;
}

// Until the phase has its first progress, the total is the work before the phase.
void RunProgress::addTotal(qint64 time, int percentage)
{
    if (percentage == m_total) {
        return;
    }
    if (percentage < m_total) {
        std::fill(m_totalTimes.begin() + percentage + 1, m_totalTimes.end(), -1);
    }
    for (int i = percentage; i >= 0 && m_totalTimes[i] < 0; --i) {
        m_totalTimes[i] = time;
    }
    m_total = percentage;
    if (m_phasePoints.size() == 1) {
        m_phaseBegin = percentage;
    }
    m_phaseAtTotal = m_phase;
    m_time = time;
}

double RunProgress::phaseEnd() const
{
    if (m_phaseAtTotal <= 0 || m_total <= m_phaseBegin) {
        return complete;
    }
    const double end =
        m_phaseBegin + (m_total - m_phaseBegin) * static_cast<double>(complete) / m_phaseAtTotal;
    return qMin<double>(end, complete);
}
