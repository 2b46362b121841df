#pragma once

#include <common_ComponentsLaunchOptions.h>

#include <QString>

#include <functional>

/// Waits for others who hold the launch options.
namespace OptionsLock {

/// The options to be written, as soon as nobody else holds them. Null when somebody does so for all
/// of the seconds; the session has shown that the file is locked then. After a moment of waiting,
/// tell is called once with a line that says for whom.
common_ComponentsLaunchOptions::Pointer wait(int seconds,
                                             const std::function<void(const QString&)>& tell);

} // namespace OptionsLock
