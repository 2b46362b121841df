// SPDX-License-Identifier: MIT
#include "ResultPoint.h"

#include <cmath>

namespace suite {

ResultPoint::ResultPoint(double atFrequency, const std::optional<Impedance>& impedance)
    : frequency(atFrequency)
{
    if (impedance) {
        values[static_cast<int>(Quantity::Resistance)] = impedance->resistance;
        values[static_cast<int>(Quantity::Reactance)] = impedance->reactance;
        values[static_cast<int>(Quantity::StandingWaveRatio)] = impedance->standingWaveRatio();
    }
}

double ResultPoint::value(Quantity quantity) const
{
    return values[static_cast<int>(quantity)];
}

std::optional<Impedance> ResultPoint::impedance() const
{
    const Impedance result = {value(Quantity::Resistance), value(Quantity::Reactance)};
    const bool isKnown = std::isfinite(result.resistance) && std::isfinite(result.reactance);
    return isKnown ? std::make_optional(result) : std::nullopt;
}

} // namespace suite
