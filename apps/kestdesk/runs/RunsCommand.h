#pragma once

#include <SubcommandGroup.h>

/// The commands "kestdesk runs ...": show, compare, repeat, export and delete recorded runs.
namespace RunsCommand {

/// Their exit code is 0, or 1 when there is no such run or something has failed, or 2 when the
/// words make no sense. That of "compare" is 0 when the runs are the same, 1 when they are
/// different and 2 when they cannot be compared, that of "again" is that of the run.
SubcommandGroup group();

} // namespace RunsCommand
