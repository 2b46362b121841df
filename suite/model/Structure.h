// SPDX-License-Identifier: MIT
#pragma once

#include "Wire.h"

namespace suite {

/// The antenna's geometry as the cards describe it.
struct Structure
{
    QVector<Wire> wires;
    int patchCards = 0;
    int groundFlag = 0; ///< of the GE card: other than 0 when there is a ground plane

    [[nodiscard]] int segmentCount() const;

    /// The number of segments with a tag; of all segments for tag 0.
    [[nodiscard]] int segmentCount(int tag) const;
};

} // namespace suite
