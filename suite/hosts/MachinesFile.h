// SPDX-License-Identifier: MIT
#pragma once

#include "MachinesLine.h"

#include <QByteArray>
#include <QStringList>
#include <QVector>

namespace suite {

/// The machines of parallel runs: a text file with one line "host:count" each, and its findings. A
/// file that has an error cannot be used.
class MachinesFile
{
public:
    enum class Severity { Note, Warning, Error };

    struct Entry
    {
        QString host; ///< IPv6 addresses without brackets
        int count = 1;
        int line = 0; ///< from 1
    };

    struct Finding
    {
        int line = 0; ///< from 1; 0 for the whole file, which is "it" in the reason
        Severity severity = Severity::Error;
        QString text; ///< the text of the line, cut if it is long
        QString reason;
    };

    static constexpr qint64 largestFile = 64 << 20;                   ///< in bytes
    static constexpr int mostProcesses = MachinesLine::mostProcesses; ///< of all hosts
    static constexpr int mostEntries = mostProcesses; ///< that are kept: more take too many
    static constexpr int mostFindings = 1000;         ///< of a severity, that are kept

    /// Reads a file. An unreadable file has an error among its findings.
    static MachinesFile read(const QString& path);

    /// Parses a file's content. The name is used in errors().
    static MachinesFile parse(const QByteArray& content, const QString& name = QString());

    /// The machines of a file with this one host.
    static MachinesFile ofHost(const QString& host, int count);

    /// The lines without mistakes.
    const QVector<Entry>& entries() const { return m_entries; }

    /// Their total number, including those that are not kept.
    int entryCount() const { return m_entryCount; }

    /// All hosts in the order of their first entries, each once with the sum of its processes. Not
    /// case-sensitive.
    const QVector<Entry>& hosts() const { return m_hosts; }

    /// The processes of all entries, at most the largest int.
    int total() const { return m_total; }

    /// The findings in the order of the file.
    const QVector<Finding>& findings() const { return m_findings; }

    /// How many there are, also of those that are not kept.
    int count(Severity severity) const { return m_counts[static_cast<int>(severity)]; }
    bool isValid() const { return count(Severity::Error) == 0; }

    /// Whether the only error is that the file names no host.
    bool namesNoHost() const { return m_namesNoHost; }

    /// False for UTF-16 and for content with NUL.
    bool isText() const { return m_isText; }

    /// The first few errors as sentences that name the file.
    QStringList errors() const;

    /// The host of a process if the ranks are assigned in the order of the file, starting again
    /// from the first entry if there are more processes than in the file.
    QString hostOf(int rank) const;

    /// The content of a machines file for the parallel runtime, from the checked entries only.
    QByteArray plainContent() const;

    /// The same as one comma-separated word, for the parallel runtime's command line.
    QString hostList() const;

private:
    class Reader;

    QString m_name;
    QVector<Entry> m_entries;
    int m_entryCount = 0;
    QVector<Entry> m_hosts;
    QVector<Finding> m_findings;
    int m_counts[3] = {}; ///< by severity
    int m_total = 0;
    bool m_namesNoHost = false;
    bool m_isText = true;
};

} // namespace suite
