// SPDX-License-Identifier: MIT
#pragma once

#include "common_MarkupFormats.h"

#include <QTextCharFormat>
#include <QVector>

class QString;
struct common_LineStyle;

/// Text in one format.
struct common_FormattedText
{
    QString text;
    QTextCharFormat format;
};

/// Reads rich text, in time linear in its length, as lines of formatted text.
///
/// Inline formatting is that of QTextDocument. Blocks become lines of text: the cells of a table's
/// row with tabs between them, items of a list with their bullet or number, the name of an image in
/// brackets, a rule as a line of hyphens.
class common_MarkupReader
{
public:
    using Line = QVector<common_FormattedText>;

    /// The lines of the text, at least one.
    QVector<Line> read(const QString& text, const common_LineStyle& style);

private:
    common_MarkupFormats m_formats;
};
