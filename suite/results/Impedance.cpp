// SPDX-License-Identifier: MIT
#include "Impedance.h"

#include <cmath>
#include <limits>

namespace suite {

namespace {

constexpr double lineImpedance = 50; // ohm

} // namespace

double Impedance::standingWaveRatio() const
{
    const double reflection = std::hypot(resistance - lineImpedance, reactance) /
                              std::hypot(resistance + lineImpedance, reactance);
    return reflection < 1 ? (1 + reflection) / (1 - reflection)
                          : std::numeric_limits<double>::infinity();
}

} // namespace suite
