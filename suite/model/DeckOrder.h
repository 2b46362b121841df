// SPDX-License-Identifier: MIT
#pragma once

#include "Deck.h"
#include "Finding.h"

namespace suite {

/// Reports cards that stand in the wrong place of a deck, and those that are missing.
void checkOrder(const Deck& deck, FindingList& findings);

} // namespace suite
