// SPDX-License-Identifier: MIT
#include "common_MarkupLines.h"

namespace {

bool isBlank(QChar character)
{
    return character.isSpace() && character != QChar::Nbsp &&
           character != QChar::ParagraphSeparator;
}

} // namespace

void common_MarkupLines::setFormat(const QTextCharFormat& format)
{
    m_format = format;
    m_isNewFormat = true;
}

void common_MarkupLines::addText(const QString& text, Blanks blanks)
{
    if (blanks == Blanks::Kept) {
        m_nextBlank = NextBlank::Kept;
    }
    for (const QChar character : text) {
        if (isBlank(character)) {
            addBlank(character, blanks);
        } else {
            addCharacter(character);
        }
    }
}

void common_MarkupLines::addVerbatim(const QString& text)
{
    beginPendingLine();
    put(text);
    m_nextBlank = NextBlank::Kept;
}

void common_MarkupLines::beginContents()
{
    m_isFresh = true;
    dropBlanks();
}

void common_MarkupLines::addCharacter(QChar character)
{
    beginPendingLine();
    m_nextBlank = NextBlank::Kept;
    putOrBreak(character);
}

void common_MarkupLines::addBlank(QChar blank, Blanks blanks)
{
    if (blanks == Blanks::Kept) {
        if (blank != QLatin1Char('\r')) {
            beginPendingLine();
            putOrBreak(blank);
        }
    } else if (m_nextBlank == NextBlank::Kept && !m_isBreakPending) {
        m_nextBlank = NextBlank::Dropped;
        put(blanks == Blanks::Unbroken ? QChar(QChar::Nbsp) : QChar(QLatin1Char(' ')));
    }
}

void common_MarkupLines::putOrBreak(QChar character)
{
    if (character == QLatin1Char('\n') || character == QChar::ParagraphSeparator) {
        beginLine();
    } else {
        put(character);
    }
}

void common_MarkupLines::beginPendingLine()
{
    if (m_isBreakPending) {
        beginLine();
    }
}

void common_MarkupLines::beginLine()
{
    m_lines.append(Line());
    m_isNewFormat = true;
    m_isBreakPending = false;
    beginContents();
}

template <typename Text>
void common_MarkupLines::put(const Text& text)
{
    Line& line = m_lines.back();
    if (std::exchange(m_isNewFormat, false) && (line.isEmpty() || line.back().format != m_format)) {
        line.append({QString(), m_format});
    }
    line.back().text += text;
    m_isFresh = false;
}
