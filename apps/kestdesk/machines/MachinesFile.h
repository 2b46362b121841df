#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QVector>

class QFile;
struct MachinesLine;

/// What stands in a machines file, and what is wrong with it.
class MachinesFile
{
public:
    enum class Severity { Note, Warning, Error };

    struct Entry
    {
        int line;
        QString host;
        int processes;
    };

    struct Finding
    {
        int line; ///< from 1; 0 for the whole file
        Severity severity;
        QString text; ///< what stands there, cut where it is long
        QString reason;
    };

    /// Opens a file to read it and returns nothing, or why it cannot be. Only regular files are
    /// opened: a pipe has no end that could be waited for.
    static QString open(QFile& file);

    /// A file that cannot be read has a finding that says so.
    static MachinesFile read(const QString& fileName);
    static MachinesFile parse(const QByteArray& content);

    /// The lines that are right.
    const QVector<Entry>& entries() const { return m_entries; }

    /// The first findings of each severity, at most mostFindings, in the file's order.
    const QVector<Finding>& findings() const { return m_findings; }

    /// How many there are in all.
    int count(Severity severity) const { return m_counts[static_cast<int>(severity)]; }
    int hostCount() const { return m_firstLines.size(); }
    bool isRight() const { return count(Severity::Error) == 0; }

    /// Whether nothing is wrong with the file but that it names no host.
    bool namesNoHost() const { return m_namesNoHost; }

    static constexpr int mostFindings = 1000;

private:
    bool checkEncoding(const QByteArray& content);
    void addLines(const QByteArray& content);
    void addLine(int number, const QByteArray& line);
    void addEntry(int number, const QByteArray& line, const MachinesLine& parsed);
    void add(int line, Severity severity, const QByteArray& text, const QString& reason);

    QVector<Entry> m_entries;
    QVector<Finding> m_findings;
    QHash<QByteArray, int> m_firstLines; ///< by host, in lower case
    int m_counts[3] = {};                // by severity
    bool m_carriageReturnsTold = false;
    bool m_namesNoHost = false;
};
