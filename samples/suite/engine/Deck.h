#pragma once

#include "Card.h"

#include <QByteArray>

namespace suite {

// A deck as read: the comment lines' bytes and the cards behind them, up to and with EN.
struct Deck
{
    QVector<QByteArray> comments;
    QVector<int> commentLines; // where the comments stand
    QVector<Card> cards;
    int lastLine = 0;
};

} // namespace suite
