// SPDX-License-Identifier: MIT
#pragma once

#include "Impedance.h"

namespace suite {

struct ResultTable;

/// The differences between two tables of results over frequency.
struct TableDifference
{
    /// Compares the points of the same frequency, rounded to the digits of a table. Both tables
    /// must have been read.
    static TableDifference of(const ResultTable& left, const ResultTable& right);

    /// Whether the tables are the same.
    [[nodiscard]] bool isNone() const;

    int common = 0;    ///< number of frequencies in both
    int onlyLeft = 0;  ///< only in the left one
    int onlyRight = 0; ///< only in the right one
    int unknown = 0;   ///< common ones whose impedance is missing in one table

    /// The largest distance of the two impedances at a frequency, divided by the larger magnitude
    /// of the two, and the frequency of it. 0 if they agree everywhere.
    double largest = 0;
    double frequency = 0; ///< in MHz
    Impedance left;
    Impedance right;
};

} // namespace suite
