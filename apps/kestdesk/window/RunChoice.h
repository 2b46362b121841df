// SPDX-License-Identifier: MIT
#pragma once

#include <common_RunWrapper.h>

/// The user's choice of run options (parallel, remote, farm out), stored with the launch options.
namespace RunChoice {

common_RunWrapper::RunOptions load();

/// Whether another program has locked the launch options. save() then shows that to the user.
bool isLocked();

/// False if the choice could not be stored.
bool save(common_RunWrapper::RunOptions options);

} // namespace RunChoice
