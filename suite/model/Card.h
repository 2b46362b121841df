#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

namespace suite {

/// One card of a deck: its two letters, the line it stands in, its fields as written and as
/// numbers. Fields that a card leaves out are 0, as the engine reads them.
struct Card
{
    QString mnemonic;
    int line = 0;
    QStringList fields;
    QVector<int> integers;
    QVector<double> numbers;
    bool isValid = false; ///< the fields are numbers and enough of them

    /// The whole numbers and the numbers of the card, counted from 1 as the engine's manual does.
    [[nodiscard]] int integer(int place) const { return integers.value(place - 1); }
    [[nodiscard]] double number(int place) const { return numbers.value(place - 1); }
};

} // namespace suite
