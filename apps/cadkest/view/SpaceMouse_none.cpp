// SPDX-License-Identifier: MIT
#include "SpaceMouse.h"

std::unique_ptr<SpaceMouse> SpaceMouse::create()
{
    return nullptr;
}
