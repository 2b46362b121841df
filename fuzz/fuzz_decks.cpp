// SPDX-License-Identifier: MIT
// A deck as prekest reads and checks it.

#include "Fuzzing.h"

#include <Preprocessor.h>

#include <cmath>

using suite::Finding;
using suite::Preprocessor;

namespace {

void requireCards(const suite::Deck& deck)
{
    int line = 0;
    for (const suite::Card& card : deck.cards) {
        require(card.line > line && card.line <= deck.lastLine, "cards stand in their lines");
        require(card.mnemonic.size() == 2, "a card begins with two letters");
        line = card.line;
        for (const double number : card.numbers) {
            require(!card.isValid || std::isfinite(number), "a good card has finite numbers");
        }
    }
}

void requireModel(const suite::Model& model)
{
    require(model.structure.segmentCount() <= 5000, "a good model has so many segments at most");
    for (const suite::Wire& wire : model.structure.wires) {
        require(std::isfinite(wire.longestSegment()) && std::isfinite(wire.shortestSegment()),
                "segments have a length");
    }
    const suite::FrequencyRange& range = model.frequencies;
    require(range.values().size() == range.count, "there are as many frequencies as counted");
    require(range.lowest() > 0 && range.lowest() <= range.highest(), "frequencies are positive");
    require(std::isfinite(range.highest()), "frequencies are finite");
}

} // namespace

void fuzz(FuzzedInput input)
{
    const QByteArray bytes = input.rest();
    const Preprocessor preprocessor(bytes);
    const suite::Model& model = preprocessor.model();
    requireCards(model.deck);
    const QVector<Finding> findings = preprocessor.findings().sorted();
    for (const Finding& finding : findings) {
        require(finding.line >= 0 && finding.line <= bytes.count('\n') + 1,
                "a finding names a line of the deck");
        require(!finding.reason.isEmpty() && !finding.reason.contains(QLatin1Char('\n')),
                "a finding is one line of text");
        require(!finding.reason.contains(QLatin1String("-*-")), "a finding holds no marker");
    }
    require(preprocessor.variables().size() >= 10, "variables are told");
    if (!preprocessor.findings().hasErrors()) {
        requireModel(model);
    }
}
