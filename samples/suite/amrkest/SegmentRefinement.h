// SPDX-License-Identifier: MIT
#pragma once

#include "Finding.h"
#include "Model.h"

#include <optional>

namespace suite {

/// Divides every segment of a model into an odd number of segments. The middle of a segment is then
/// the middle of one of the new ones, and its ends are ends of new ones, so that sources, loads and
/// lines stay where they are.
class SegmentRefinement
{
public:
    explicit SegmentRefinement(const Model& model);

    /// The cards that cannot be refined, and a missing source.
    [[nodiscard]] FindingList problems() const;

    [[nodiscard]] int segmentCount(int factor) const;

    /// Why the model must not be divided by a factor; empty if it may.
    [[nodiscard]] FindingList obstacle(int factor) const;

    /// The refined deck, over the model's own frequencies or at one, in MHz.
    [[nodiscard]] QByteArray deck(int factor, std::optional<double> frequency = std::nullopt) const;

    /// The middle one, the first and the last of the segments that a segment is divided into.
    static int middle(int segment, int factor) { return (segment - 1) * factor + (factor + 1) / 2; }
    static int first(int segment, int factor) { return (segment - 1) * factor + 1; }
    static int last(int segment, int factor) { return segment * factor; }

private:
    [[nodiscard]] QVector<Card> refined(const Card& card, int factor) const;
    [[nodiscard]] QVector<Card> refinedLoad(const Card& card, int factor) const;

    const Model& m_model;
};

} // namespace suite
