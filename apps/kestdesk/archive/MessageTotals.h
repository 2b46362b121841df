// SPDX-License-Identifier: MIT
#pragma once

#include "RecordedMessage.h"

#include <QStringList>

struct RunRecord;

/// Totals over the messages of a record.
class MessageTotals
{
public:
    void add(const RecordedMessage& message);

    /// Time of the last message, in milliseconds since the start.
    qint64 lastTime() const { return m_lastTime; }

    /// Puts the counts, the last lines and the total percentage into the record.
    void fill(RunRecord& record) const;

private:
    int m_counts[common_IProcessMessage::Variable + 1] = {}; ///< by message type
    QStringList m_lastLines;
    int m_totalPercentage = 0;
    qint64 m_lastTime = 0;
};
