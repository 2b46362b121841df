#pragma once

#include <QString>

#include <optional>

/// A word that names one process for good: by its host, the host's start, its id and its own start.
///
/// What carries the word of its owner, in its name or beside it, can be removed by another
/// process once the owner was killed.
class ProcessMark
{
public:
    /// A regular expression for the words, without groups.
    static constexpr const char* pattern =
        "[0-9a-f]{8}-[0-9a-f]{8}-[1-9][0-9]{0,9}-[1-9][0-9]{0,19}";

    /// The mark of this process.
    static ProcessMark own();

    /// Nothing when the word is not a mark.
    static std::optional<ProcessMark> parse(const QString& word);

    /// Letters, digits and "-".
    QString word() const;

    /// Whether the process has ended for certain. Of a process of another host, and where the
    /// system does not tell, that is never certain.
    bool hasEnded() const;

private:
    QString m_host;
    QString m_boot;
    qint64 m_processId = 0;
    quint64 m_startTime = 0;
};
