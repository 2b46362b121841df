// SPDX-License-Identifier: MIT
#pragma once

#include <SubcommandGroup.h>

/// The commands "kestdesk runs ...": show, compare, repeat, export and delete recorded runs.
namespace RunsCommand {

/// Exit codes: 0; 1 if there is no such run or something failed; 2 for invalid arguments. "compare"
/// returns 0 if the runs are the same, 1 if they differ and 2 if they cannot be compared. "again"
/// returns the exit code of the run.
SubcommandGroup group();

} // namespace RunsCommand
