// SPDX-License-Identifier: MIT
#pragma once

#include "Impedance.h"

#include <limits>
#include <optional>

namespace suite {

/// The quantities of a result, in the order of its table's columns.
enum class Quantity { Resistance, Reactance, StandingWaveRatio };

constexpr int quantityCount = 3;

/// The results at one frequency, in MHz. A missing quantity is NaN or infinite.
struct ResultPoint
{
    ResultPoint() = default;

    /// The impedance is nothing if no source drives the structure.
    ResultPoint(double atFrequency, const std::optional<Impedance>& impedance);

    [[nodiscard]] double value(Quantity quantity) const;

    /// The impedance; nothing if the resistance or the reactance is unknown.
    [[nodiscard]] std::optional<Impedance> impedance() const;

    double frequency = 0;
    double values[quantityCount] = {std::numeric_limits<double>::quiet_NaN(),
                                    std::numeric_limits<double>::quiet_NaN(),
                                    std::numeric_limits<double>::quiet_NaN()};
};

} // namespace suite
