// SPDX-License-Identifier: MIT
#include "MessageTotals.h"

#include "RunOutcome.h"
#include "RunRecord.h"

namespace {

constexpr int mostLastLines = 20;

} // namespace

void MessageTotals::add(const RecordedMessage& message)
{
    ++m_counts[message.type];
    m_lastTime = message.time;
    if (message.type == common_IProcessMessage::Output) {
        m_lastLines.append(message.text);
        if (m_lastLines.size() > mostLastLines) {
            m_lastLines.removeFirst();
        }
    } else if (message.type == common_IProcessMessage::TotalPercentage) {
        m_totalPercentage = RunOutcome::percentage(message.text, m_totalPercentage);
    }
}

void MessageTotals::fill(RunRecord& record) const
{
    record.errors = m_counts[common_IProcessMessage::Error];
    record.warnings = m_counts[common_IProcessMessage::Warning];
    record.notices = m_counts[common_IProcessMessage::Notice];
    record.lastLines = m_lastLines;
    record.totalPercentage = m_totalPercentage;
}
