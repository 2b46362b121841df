// SPDX-License-Identifier: MIT
#pragma once

namespace suite {

/// The feed point's impedance at one frequency, in ohm.
struct Impedance
{
    double resistance = 0;
    double reactance = 0;

    /// Standing wave ratio on a 50 ohm line; infinite if no power is absorbed.
    [[nodiscard]] double standingWaveRatio() const;
};

} // namespace suite
