// SPDX-License-Identifier: MIT
#include "WindowDisplay.h"

bool WindowDisplay::exists()
{
    return true;
}
