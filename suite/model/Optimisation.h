#pragma once

#include "Deck.h"
#include "Finding.h"

#include <optional>

namespace suite {

/// What a model says of how to tune it: "CM @optimise NAME FROM LOW TO HIGH AT MHZ".
struct Optimisation
{
    NamedValue value;
    double low = 0;
    double high = 0;
    double frequency = 0; ///< in MHz; 0 when the model does not say it
    int line = 0;
};

/// True for the text of a comment that says what to tune.
bool isOptimisation(const QByteArray& comment);

/// Reads what the deck says. Empty when it says nothing or makes a mistake, which is reported.
std::optional<Optimisation> readOptimisation(const Deck& deck, FindingList& findings);

} // namespace suite
