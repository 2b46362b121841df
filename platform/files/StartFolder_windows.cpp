// SPDX-License-Identifier: MIT
#include "StartFolder.h"

#include <windows.h>

// The system adds a separator and a NUL, also where programs may use longer paths.
int StartFolder::longestPath()
{
    return MAX_PATH - 2;
}
