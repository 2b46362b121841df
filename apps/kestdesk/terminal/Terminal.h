#pragma once

#include <QString>

#include <cstdio>

/// A stream of lines, with colours and one line at its end that changes in place where a person
/// looks at it, and with neither where it goes into a file or a pipe.
class Terminal
{
public:
    enum class Colour { None, Red, Yellow, Cyan, Green };

    explicit Terminal(std::FILE* stream);

    /// Removes the status line.
    ~Terminal();

    Terminal(const Terminal&) = delete;
    Terminal& operator=(const Terminal&) = delete;

    /// Writes a line above the status line. The text is made visible: what a child prints must not
    /// steer the terminal. The status line is removed until it is set again.
    void writeLine(const QString& text, Colour colour = Colour::None);

    /// Shows the text as the last line, cut to the width; nothing where there is no terminal.
    void setStatusLine(const QString& text);

    void clearStatusLine();

    void flush();

private:
    void write(const QString& text);

    std::FILE* m_stream;
    bool m_interactive;
    bool m_coloured;
    bool m_statusShown = false;
};
