// SPDX-License-Identifier: MIT
#include "Structure.h"

namespace suite {

int Structure::segmentCount() const
{
    return segmentCount(0);
}

int Structure::segmentCount(int tag) const
{
    int count = 0;
    for (const Wire& wire : wires) {
        count += tag == 0 || wire.tag == tag ? wire.segmentCount() : 0;
    }
    return count;
}

} // namespace suite
