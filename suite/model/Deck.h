#pragma once

#include "Card.h"
#include "NamedValues.h"

#include <QByteArray>

namespace suite {

/// A comment that tells a component something.
struct Instruction
{
    int line = 0;
    QByteArray text;
};

/// A deck as read: the comment lines' bytes and the cards behind them, up to and with EN.
/// Cards that give values names are not among the cards, which hold the values instead.
struct Deck
{
    QVector<QByteArray> comments;
    QVector<int> commentLines; ///< where the comments stand
    QVector<Card> cards;
    QVector<Instruction> instructions;
    NamedValues names;
    QByteArray bytes; ///< the whole file
    int lastLine = 0;
};

} // namespace suite
