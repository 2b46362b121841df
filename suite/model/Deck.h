// SPDX-License-Identifier: MIT
#pragma once

#include "Card.h"
#include "NamedValues.h"

#include <QByteArray>

namespace suite {

/// A comment with an instruction to a component.
struct Instruction
{
    int line = 0;
    QByteArray text;
};

/// A deck as read: the comment lines' bytes and the cards behind them, up to and with EN. Cards
/// that define named values are left out; the other cards hold the values.
struct Deck
{
    QVector<QByteArray> comments;
    QVector<int> commentLines; ///< line numbers of the comments
    QVector<Card> cards;
    QVector<Instruction> instructions;
    NamedValues names;
    QByteArray bytes; ///< the whole file
    int lastLine = 0;
};

} // namespace suite
