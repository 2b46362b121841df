// SPDX-License-Identifier: MIT
#pragma once

#include "Deck.h"
#include "Finding.h"

namespace suite {

/// The settings for adaptive sampling from a model's comment line "CM @adapt [TOLERANCE]".
struct AdaptiveSampling
{
    /// Largest allowed error of the curve through the solved points, as a fraction of the
    /// impedance.
    static constexpr double usualTolerance = 0.01;

    bool isWanted = false;
    int line = 0;
    double tolerance = usualTolerance;
};

/// Reads the line; mistakes in it become findings.
AdaptiveSampling readAdaptiveSampling(const Deck& deck, FindingList& findings);

} // namespace suite
