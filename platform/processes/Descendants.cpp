// SPDX-License-Identifier: MIT
#include "Descendants.h"

// A process that just lost its parent may be missed in one pass, but not in two.
bool Descendants::areAlive()
{
    const bool isSeen = isAnySeen();
    return isSeen || isAnySeen();
}
