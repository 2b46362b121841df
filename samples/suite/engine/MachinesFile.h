#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

namespace suite {

// A machines file: lines "host:count", or "host" for one process. Lines that begin with "#" are
// comments.
class MachinesFile
{
public:
    struct Entry
    {
        QString host; // as written; IPv6 addresses in brackets
        int count = 1;
    };

    // Reads the file.
    explicit MachinesFile(const QString& path);

    // What is wrong with it, with line numbers; empty when it can be used.
    [[nodiscard]] const QStringList& errors() const { return m_errors; }

    [[nodiscard]] const QVector<Entry>& entries() const { return m_entries; }

    // The sum of all counts, at most the largest integer.
    [[nodiscard]] int total() const;

private:
    void readLine(const QByteArray& line, int number);
    void complain(int line, const QString& problem);

    QVector<Entry> m_entries;
    QStringList m_errors;
};

} // namespace suite
