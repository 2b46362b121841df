#ifndef RUNCHOICE_H
#define RUNCHOICE_H

#include <common_RunWrapper.h>

/// Parallel, remote, farmed out: the user's choice, kept among the launch options.
namespace RunChoice {

common_RunWrapper::RunOptions load();

/// False when the options cannot be changed now, of which the user has been told.
bool save(common_RunWrapper::RunOptions options);

} // namespace RunChoice

#endif
