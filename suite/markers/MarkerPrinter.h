// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

#include <cstdio>
#include <optional>

namespace suite {

struct MarkerLine;

/// The kind of an output line, for the program that reads it.
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

/// Prints a component's messages, one marker a line. Flushes each line at once: the reader shows it
/// during the run. On a terminal, where no program opens the named files, control characters in
/// file names are made visible, too.
class MarkerPrinter
{
public:
    explicit MarkerPrinter(std::FILE* stream = stdout);

    /// Prints one line with a marker. The body is escaped, so that it cannot contain a marker;
    /// otherwise file names are not changed.
    void print(Marker marker, const QString& body);

    /// Prints the names of files that were written, one a line.
    void printFiles(const QStringList& paths);

    /// Prints one plain line.
    void printText(const QString& text);

    /// Prints a line of another component again, with its marker.
    void printAgain(const MarkerLine& line);

    /// Prints "45%" behind a percentage marker.
    void printPercentage(Marker marker, int percentage);

    /// Prints an empty line for the reader.
    void printLineFeed();

    /// Whether a write has failed, so that the output is incomplete.
    bool hasFailed() const { return m_failed; }

    /// Whether the output has lost its reader: a write has failed, or the other end of the pipe is
    /// closed.
    bool isReaderGone();

private:
    void writeLine(const QString& line);

    std::FILE* m_stream;
    bool m_isTerminal;
    bool m_failed = false;
};

} // namespace suite
