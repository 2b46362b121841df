#pragma once

#include "Deck.h"
#include "Finding.h"

namespace suite {

/// What a model says of adaptive sampling, in a comment line "CM @adapt [TOLERANCE]".
struct AdaptiveSampling
{
    /// How far the curve through the solved points may be from the impedance, as a part of it.
    static constexpr double usualTolerance = 0.01;

    bool isWanted = false;
    int line = 0;
    double tolerance = usualTolerance;
};

/// Reads the line; mistakes in it become findings.
AdaptiveSampling readAdaptiveSampling(const Deck& deck, FindingList& findings);

} // namespace suite
