// SPDX-License-Identifier: MIT
#pragma once

#include "CommandLine.h"

namespace suite {

/// The options of a group that were given, as words for the command line of another component.
/// Switches to other groups are left out, and so are the options with the names in `without`.
QStringList optionWords(const CommandLine& line, OptionGroup group,
                        const QStringList& without = QStringList());

/// The words that make another component ignore the model's errors; empty if this one does not
/// ignore them.
QStringList ignoreErrorsWords(const CommandLine& line);

} // namespace suite
