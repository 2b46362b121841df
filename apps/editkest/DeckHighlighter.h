// SPDX-License-Identifier: MIT
#pragma once

#include <QPalette>
#include <QSyntaxHighlighter>

/// Colours the cards of a deck.
class DeckHighlighter : public QSyntaxHighlighter
{
    Q_OBJECT

public:
    /// The palette decides between colours for light and for dark backgrounds, and shades them
    /// until they can be read.
    DeckHighlighter(QTextDocument* document, const QPalette& palette);

    /// After a change of the palette.
    void setPalette(const QPalette& palette);

protected:
    void highlightBlock(const QString& text) override;

private:
    enum class Part { Comment, Geometry, Control, End, Unknown, Number, Remark };

    void colour(int start, int length, Part part);
    static Part partOfCard(const QString& mnemonic);

    QColor readable(const char* light, const char* dark) const;

    QColor m_base;        ///< of the lines
    QColor m_currentBase; ///< of the line with the cursor
};
