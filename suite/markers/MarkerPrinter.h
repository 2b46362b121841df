#pragma once

#include <QStringList>

#include <cstdio>
#include <optional>

namespace suite {

struct MarkerLine;

/// What a line of output is for the program that reads it.
enum class Marker {
    LineFeed,
    Percentage,
    TotalPercentage,
    Error,
    Warning,
    Notice,
    File,
    Variable,
};

/// The text of a marker, and the marker that a line begins with.
QString markerText(Marker marker);
std::optional<Marker> markerOf(const QString& line);

/// Prints a component's messages, one marker a line, each line flushed at once: the reader shows it
/// while the run goes on. On a terminal, where no program opens what is named, names of files are
/// made visible, too.
class MarkerPrinter
{
public:
    explicit MarkerPrinter(std::FILE* stream = stdout);

    /// Prints one tagged line. The body is made safe, so it cannot form a marker of its own; the
    /// name of a file stays what it is otherwise.
    void print(Marker marker, const QString& body);

    /// Prints the names of files that were written, one a line.
    void printFiles(const QStringList& paths);

    /// Prints one plain line.
    void printText(const QString& text);

    /// Prints one line that another component has printed, marker and all.
    void printAgain(const MarkerLine& line);

    /// Prints "45%" behind a percentage marker.
    void printPercentage(Marker marker, int percentage);

    /// Prints an empty line for the reader.
    void printLineFeed();

    /// True once a write has failed: something is missing from the output.
    bool hasFailed() const { return m_failed; }

    /// True once the output has no reader: a write has failed or the other end of the pipe is
    /// closed.
    bool isReaderGone();

private:
    void writeLine(const QString& line);

    std::FILE* m_stream;
    bool m_isTerminal;
    bool m_failed = false;
};

} // namespace suite
