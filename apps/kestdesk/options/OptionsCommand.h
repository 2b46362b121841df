#pragma once

#include <SubcommandGroup.h>

/// The commands "kestdesk options ...": show and change the user's launch options.
namespace OptionsCommand {

/// Their exit code is 0, or 1 when the options could not be read, changed or saved, with the reason
/// on standard error.
SubcommandGroup group();

} // namespace OptionsCommand
