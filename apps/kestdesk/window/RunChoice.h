#pragma once

#include <common_RunWrapper.h>

/// Parallel, remote, farmed out: the user's choice, kept among the launch options.
namespace RunChoice {

common_RunWrapper::RunOptions load();

/// Whether another program holds the launch options. Saving then shows that to the user.
bool isLocked();

/// False when the choice could not be kept.
bool save(common_RunWrapper::RunOptions options);

} // namespace RunChoice
