// SPDX-License-Identifier: MIT
#include "WindowDisplay.h"

#include <QtGlobal>

#include <algorithm>
#include <iterator>

bool WindowDisplay::exists()
{
    constexpr const char* variables[] = {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"};
    return std::any_of(std::begin(variables), std::end(variables),
                       [](const char* name) { return !qEnvironmentVariableIsEmpty(name); });
}
