#pragma once

#include <QHash>
#include <QStringList>
#include <QVector>

namespace suite {

/// The machines of parallel runs: a text file with a line "host:count" each. A host without a count
/// takes one process; what stands behind a "#" is a comment; a host may come more than once.
class MachinesFile
{
public:
    static constexpr int mostProcesses = 4096;

    struct Entry
    {
        QString host; ///< IPv6 addresses without brackets
        int count = 1;
    };

    /// Reads a file.
    explicit MachinesFile(const QString& path);

    /// Reads a file's content; the name is for messages.
    static MachinesFile parse(const QByteArray& content, const QString& name);

    /// One host, as if it stood in a file.
    static MachinesFile ofHost(const QString& host, int count);

    /// What is wrong, one text each, the first few; empty when the file can be used.
    [[nodiscard]] const QStringList& errors() const { return m_errors; }

    /// The hosts in the order of the file, each once.
    [[nodiscard]] const QVector<Entry>& entries() const { return m_entries; }
    [[nodiscard]] int total() const { return m_total; }

    /// The host of a process when they are dealt out in the order of the file, from the start again
    /// when there are more processes than the file counts.
    [[nodiscard]] QString hostOf(int rank) const;

    /// The content of a file that the parallel runtime reads; only what was checked is in it.
    [[nodiscard]] QByteArray plainContent() const;

    /// The same as one word, with commas, for the parallel runtime's command line.
    [[nodiscard]] QString hostList() const;

    /// True for text that can be a host's name or address: it is no option and nothing to a shell.
    static bool isHost(const QString& text);

private:
    MachinesFile() = default;

    void readContent(const QByteArray& content);
    void readLine(const QByteArray& line, int number);
    void add(const Entry& entry);
    void complain(int line, const QByteArray& text, const QString& reason);

    QString m_name;
    QVector<Entry> m_entries;
    QHash<QString, int> m_places;
    QStringList m_errors;
    int m_total = 0;
};

} // namespace suite
