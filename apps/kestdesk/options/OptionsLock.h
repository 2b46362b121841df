#pragma once

#include <common_ComponentsLaunchOptions.h>

#include <QString>

#include <functional>

/// Waits for other programs that hold the launch options.
namespace OptionsLock {

/// The options for writing, as soon as no other program holds them. Null when another program holds
/// them for all of the seconds; the session has shown that the file is locked then. After a moment
/// of waiting, tell is called once with a line that names this program.
common_ComponentsLaunchOptions::Pointer wait(int seconds,
                                             const std::function<void(const QString&)>& tell);

} // namespace OptionsLock
