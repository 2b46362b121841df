#pragma once

#include <QPalette>
#include <QSyntaxHighlighter>

/// Colours the cards of a deck.
class DeckHighlighter : public QSyntaxHighlighter
{
    Q_OBJECT

public:
    /// The palette decides between colours for light and for dark backgrounds.
    DeckHighlighter(QTextDocument* document, const QPalette& palette);

protected:
    void highlightBlock(const QString& text) override;

private:
    enum class Part { Comment, Geometry, Control, End, Unknown, Number, Remark };

    void colour(int start, int length, Part part);
    static Part partOfCard(const QString& mnemonic);

    bool m_isDark;
};
