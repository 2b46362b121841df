#pragma once

#include <SubcommandGroup.h>

/// The commands "kestdesk machines ...": show, check and change the machines file.
namespace MachinesCommand {

/// Their exit code is 0, or 1 when something is wrong with the file or a host, or 2 when the
/// command could not be done, or 130 when it was stopped.
SubcommandGroup group();

} // namespace MachinesCommand
