#pragma once

#include "CommandLine.h"

namespace suite {

/// The options of a group that were given, as words for the command line of another component.
/// Switches to other groups are left out.
QStringList optionWords(const CommandLine& line, OptionGroup group);

} // namespace suite
