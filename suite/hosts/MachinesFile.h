#pragma once

#include "MachinesLine.h"

#include <QByteArray>
#include <QStringList>
#include <QVector>

namespace suite {

/// The machines of parallel runs: a text file with a line "host:count" each, and what is wrong with
/// it. A file that has an error cannot be used.
class MachinesFile
{
public:
    enum class Severity { Note, Warning, Error };

    struct Entry
    {
        QString host; ///< addresses of IPv6 without brackets
        int count = 1;
        int line = 0; ///< from 1
    };

    struct Finding
    {
        int line = 0; ///< from 1; 0 for the whole file, which is "it" in the reason
        Severity severity = Severity::Error;
        QString text; ///< what stands there, cut where it is long
        QString reason;
    };

    static constexpr qint64 largestFile = 64 << 20;                   ///< in bytes
    static constexpr int mostProcesses = MachinesLine::mostProcesses; ///< of all hosts
    static constexpr int mostEntries = mostProcesses; ///< that are kept: more take too many
    static constexpr int mostFindings = 1000;         ///< of a severity, that are kept

    /// A file that cannot be read has a finding that says so.
    static MachinesFile read(const QString& path);

    /// The name is for errors().
    static MachinesFile parse(const QByteArray& content, const QString& name = QString());

    /// One host, as if it stood in a file.
    static MachinesFile ofHost(const QString& host, int count);

    /// The lines without mistakes.
    const QVector<Entry>& entries() const { return m_entries; }

    /// How many there are, also of those that are not kept.
    int entryCount() const { return m_entryCount; }

    /// All hosts, each once, where it stands first, with all its processes. Upper and lower case
    /// make no difference.
    const QVector<Entry>& hosts() const { return m_hosts; }

    /// Of all entries, or the largest number of an integer.
    int total() const { return m_total; }

    /// In the order of the file.
    const QVector<Finding>& findings() const { return m_findings; }

    /// How many there are, also of those that are not kept.
    int count(Severity severity) const { return m_counts[static_cast<int>(severity)]; }
    bool isValid() const { return count(Severity::Error) == 0; }

    /// Whether nothing is wrong with the file but that it names no host.
    bool namesNoHost() const { return m_namesNoHost; }

    /// False for UTF-16 and for content with NUL.
    bool isText() const { return m_isText; }

    /// The first few errors as sentences that name the file.
    QStringList errors() const;

    /// The host of a process when they are dealt out in the order of the file, from the start again
    /// when there are more processes than the file counts.
    QString hostOf(int rank) const;

    /// The content of a file that the parallel runtime reads; only what was checked is in it.
    QByteArray plainContent() const;

    /// The same as one word, with commas, for the parallel runtime's command line.
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
