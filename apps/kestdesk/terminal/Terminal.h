// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <cstdio>

/// An output stream of lines. On a terminal it has colours and a status line at the end that is
/// updated in place; in a file or a pipe it has neither.
class Terminal
{
public:
    enum class Colour { None, Red, Yellow, Cyan, Green };

    explicit Terminal(std::FILE* stream);

    /// Removes the status line.
    ~Terminal();

    Terminal(const Terminal&) = delete;
    Terminal& operator=(const Terminal&) = delete;

    /// Writes a line above the status line. Control characters are made visible: output of a child
    /// must not control the terminal. The status line is removed until it is set again.
    void writeLine(const QString& text, Colour colour = Colour::None);

    /// Shows the text as the last line, cut to the width. Does nothing if the stream is not a
    /// terminal.
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
