#pragma once

#include <Decks.h>

inline QString utf8(const char* text)
{
    return QString::fromUtf8(text);
}

/// The good dipole with one line replaced. Several cards may stand in for one, and none.
inline QByteArray changed(int line, const QString& card)
{
    QStringList cards = dipoleCards();
    if (card.isNull()) {
        cards.removeAt(line - 1);
    } else {
        cards[line - 1] = card;
    }
    return deckOf(cards);
}
