// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QList>

namespace suite {

/// Digits of a number in a table that a component writes.
constexpr int tableDigits = 6;

/// A line of a table of comma-separated values, with its line end.
QByteArray tableLine(const QList<QByteArray>& cells);

/// Formats a number for such a table, with a point as decimal separator whatever the locale. Empty
/// for an unknown number (NaN). The digits may be QLocale::FloatingPointShortest.
QByteArray tableNumber(double value, int digits = tableDigits);

} // namespace suite
