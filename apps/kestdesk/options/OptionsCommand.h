// SPDX-License-Identifier: MIT
#pragma once

#include <SubcommandGroup.h>

/// The commands "kestdesk options ...": show and change the user's launch options.
namespace OptionsCommand {

/// The exit code is 0, or 1 if the options could not be read, changed or saved; the reason is on
/// standard error.
SubcommandGroup group();

} // namespace OptionsCommand
