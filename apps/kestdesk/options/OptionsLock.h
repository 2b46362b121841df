// SPDX-License-Identifier: MIT
#pragma once

#include <common_ComponentsLaunchOptions.h>

#include <QString>

#include <functional>

/// Waits for other programs that hold the launch options.
namespace OptionsLock {

/// Returns the options for writing as soon as no other program holds them. If another program holds
/// them all the time, the session shows that the file is locked, and null is returned. After a
/// short wait, `tell` is called once with a line that names the other program.
common_ComponentsLaunchOptions::Pointer wait(int seconds,
                                             const std::function<void(const QString&)>& tell);

} // namespace OptionsLock
