// SPDX-License-Identifier: MIT
#pragma once

#include <AccessMode.h>
#include <common_ActivePtr.h>
#include <common_LockFile.h>

/// The lock file of the user's kest.ini, locked unless the mode is read-only. Null when another
/// object has the lock, after a message to the user. Asserts that the common_IApplicationInfo
/// service exists, with the file and the line of the caller.
common_ActivePtr<common_LockFile> common_lockedUserSettings(AccessMode mode, const char* file,
                                                            int line);
