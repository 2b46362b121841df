// SPDX-License-Identifier: MIT
#pragma once

#include "Deck.h"
#include "Finding.h"

#include <optional>

namespace suite {

/// The settings for tuning from a model's comment line: "CM @optimise NAME FROM LOW TO HIGH AT
/// MHZ".
struct Optimisation
{
    NamedValue value;
    double low = 0;
    double high = 0;
    double frequency = 0; ///< in MHz; 0 if the model does not give it
    int line = 0;
};

/// Whether the text of a comment is such a line.
bool isOptimisation(const QByteArray& comment);

/// Reads the line from a deck. Nothing if there is none, or if it has an error, which is added to
/// the findings.
std::optional<Optimisation> readOptimisation(const Deck& deck, FindingList& findings);

} // namespace suite
