// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

namespace suite {

/// One card of a deck: its two letters, its line, its fields as written and as numbers. Omitted
/// fields are 0, as in the engine.
struct Card
{
    QString mnemonic;
    int line = 0;
    QStringList fields;
    QVector<int> integers;
    QVector<double> numbers;
    bool isValid = false; ///< the fields are numbers and enough of them

    /// The integer and the floating-point fields, counted from 1 as in the engine's manual.
    [[nodiscard]] int integer(int place) const { return integers.value(place - 1); }
    [[nodiscard]] double number(int place) const { return numbers.value(place - 1); }
};

} // namespace suite
