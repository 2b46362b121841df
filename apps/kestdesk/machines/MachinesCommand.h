// SPDX-License-Identifier: MIT
#pragma once

#include <SubcommandGroup.h>

/// The commands "kestdesk machines ...": show, check and change the machines file.
namespace MachinesCommand {

/// The exit code is 0, or 1 if the file or a host has an error, 2 if the command could not be
/// executed, and 130 if it was stopped.
SubcommandGroup group();

} // namespace MachinesCommand
