#pragma once

#include "Impedance.h"

#include <limits>
#include <optional>

namespace suite {

/// The quantities of a result, in the order of its table's columns.
enum class Quantity { Resistance, Reactance, StandingWaveRatio };

constexpr int quantityCount = 3;

/// One frequency in MHz and what was found there. A quantity that is missing or infinite is not
/// finite.
struct ResultPoint
{
    ResultPoint() = default;

    /// Nothing for the impedance where no source drives the structure.
    ResultPoint(double atFrequency, const std::optional<Impedance>& impedance);

    [[nodiscard]] double value(Quantity quantity) const;

    /// Nothing when the resistance or the reactance is not known.
    [[nodiscard]] std::optional<Impedance> impedance() const;

    double frequency = 0;
    double values[quantityCount] = {std::numeric_limits<double>::quiet_NaN(),
                                    std::numeric_limits<double>::quiet_NaN(),
                                    std::numeric_limits<double>::quiet_NaN()};
};

} // namespace suite
