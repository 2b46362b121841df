// SPDX-License-Identifier: MIT
#pragma once

#include "common_MarkupFormats.h"
#include "common_MarkupReader.h"

#include <QString>
#include <QVector>

#include <utility>

/// Collects formatted text in lines while rich text is read, and decides which blanks and line
/// breaks remain.
class common_MarkupLines
{
public:
    using Blanks = common_MarkupFormats::Blanks;
    using Line = common_MarkupReader::Line;

    /// The format of what is added from now on.
    void setFormat(const QTextCharFormat& format);

    /// Adds text of the source; runs of blanks are collapsed as their kind says.
    void addText(const QString& text, Blanks blanks);

    /// Adds text that the source does not contain, as a bullet. It replaces no blanks.
    void addVerbatim(const QString& text);

    /// Before a block: a new line, unless the block is the first one in a cell or a list item.
    void breakLineBefore() { m_isBreakPending = m_isBreakPending || !m_isFresh; }

    /// Behind a block: a new line, unless the present one is empty.
    void breakLineBehind() { m_isBreakPending = !m_lines.back().isEmpty(); }

    /// Cancels a pending new line.
    void continueLine() { m_isBreakPending = false; }

    /// After the text that was made up for the beginning of a cell or a list item.
    void beginContents();

    /// The blanks that follow are left out.
    void dropBlanks() { m_nextBlank = NextBlank::Dropped; }

    /// The lines, at least one; nothing can be added afterwards.
    QVector<Line> take() { return std::move(m_lines); }

private:
    enum class NextBlank { Kept, Dropped };

    void addCharacter(QChar character);
    void addBlank(QChar blank, Blanks blanks);
    void putOrBreak(QChar character);
    void beginPendingLine();
    void beginLine();
    template <typename Text>
    void put(const Text& text);

    QVector<Line> m_lines = {Line()};
    QTextCharFormat m_format;
    bool m_isNewFormat = true;
    bool m_isBreakPending = false;
    bool m_isFresh = true; ///< at the beginning of a line, a cell or a list item
    NextBlank m_nextBlank = NextBlank::Dropped;
};
