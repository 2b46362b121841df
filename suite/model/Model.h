// SPDX-License-Identifier: MIT
#pragma once

#include "AdaptiveSampling.h"
#include "Deck.h"
#include "FrequencyRange.h"
#include "Optimisation.h"
#include "Structure.h"

namespace suite {

/// The properties of a model that pre-processing finds.
struct Model
{
    Deck deck;
    Structure structure;
    FrequencyRange frequencies;
    AdaptiveSampling adaptive;
    std::optional<Optimisation> optimisation; ///< with its frequency, unless the model has none
    int frequencyCard = -1;                   // index of the FR card, -1 without one
    int groundType = -1;                      // of the last GN card; -1 is free space
    int excitationCount = 0;
    bool hasVoltageSource = false;
};

} // namespace suite
