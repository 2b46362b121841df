// SPDX-License-Identifier: MIT
#include "Terminal.h"

#include "TerminalDevice.h"

#include <VisibleText.h>

namespace {

// Indexed by Terminal::Colour; SGR sequences of ECMA-48.
constexpr const char* colourSequences[] = {"", "\x1b[31m", "\x1b[33m", "\x1b[36m", "\x1b[32m"};
constexpr const char* plainSequence = "\x1b[0m";
constexpr const char* clearSequence = "\r\x1b[K";

} // namespace

Terminal::Terminal(std::FILE* stream)
    : m_stream(stream)
    , m_interactive(TerminalDevice::isTerminal(stream))
    , m_coloured(m_interactive && qEnvironmentVariableIsEmpty("NO_COLOR"))
{}

Terminal::~Terminal()
{
    clearStatusLine();
    flush();
}

void Terminal::writeLine(const QString& text, Colour colour)
{
    clearStatusLine();
    const bool coloured = m_coloured && colour != Colour::None;
    if (coloured) {
        write(QLatin1String(colourSequences[static_cast<int>(colour)]));
    }
    write(suite::visibleText(text));
    write(coloured ? QLatin1String(plainSequence) + QLatin1Char('\n') : QStringLiteral("\n"));
}

void Terminal::setStatusLine(const QString& text)
{
    if (!m_interactive) {
        return;
    }
    clearStatusLine();
    write(suite::visibleText(text).left(TerminalDevice::columns(m_stream) - 1));
    m_statusShown = true;
    flush();
}

void Terminal::clearStatusLine()
{
    if (m_statusShown) {
        write(QLatin1String(clearSequence));
        m_statusShown = false;
    }
}

void Terminal::flush()
{
    std::fflush(m_stream);
}

void Terminal::write(const QString& text)
{
    const QByteArray bytes = text.toLocal8Bit();
    std::fwrite(bytes.constData(), 1, static_cast<std::size_t>(bytes.size()), m_stream);
}
