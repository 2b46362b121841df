// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <optional>

/// A word that identifies one process for ever: by its host, the host's boot, its id and its start
/// time.
///
/// Files with the mark of their owner, in their name or beside them, can be removed by another
/// process after the owner was killed.
class ProcessMark
{
public:
    /// A regular expression for the words, without groups.
    static constexpr const char* pattern =
        "[0-9a-f]{8}-[0-9a-f]{8}-[1-9][0-9]{0,9}-[1-9][0-9]{0,19}";

    /// The mark of this process.
    static ProcessMark own();

    /// Parses a word; nothing if it is not a mark.
    static std::optional<ProcessMark> parse(const QString& word);

    /// The word. It consists of letters, digits and "-".
    QString word() const;

    /// Whether the process has certainly ended. Always false for a process of another host, and if
    /// the system cannot tell.
    bool hasEnded() const;

private:
    QString m_host;
    QString m_boot;
    qint64 m_processId = 0;
    quint64 m_startTime = 0;
};
