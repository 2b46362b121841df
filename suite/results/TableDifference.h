#pragma once

#include "Impedance.h"

namespace suite {

struct ResultTable;

/// How far two tables of results over frequency are apart.
struct TableDifference
{
    /// Both tables were read. Points of the same frequency are compared, to the digits of a table.
    static TableDifference of(const ResultTable& left, const ResultTable& right);

    /// Whether they hold the same.
    [[nodiscard]] bool isNone() const;

    int common = 0;    ///< frequencies that both have
    int onlyLeft = 0;  ///< that only the left one has
    int onlyRight = 0; ///< that only the right one has
    int unknown = 0;   ///< common ones whose impedance only one table knows

    /// The largest distance of two impedances at a frequency, divided by the larger magnitude of
    /// the two, and where it is. 0 where they agree everywhere.
    double largest = 0;
    double frequency = 0; ///< in MHz
    Impedance left;
    Impedance right;
};

} // namespace suite
