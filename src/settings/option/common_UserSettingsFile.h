#pragma once

#include <AccessMode.h>
#include <common_ActivePtr.h>
#include <common_LockFile.h>

/// The user's kest.ini, locked unless the mode is read-only; null when somebody else has the lock,
/// of which the user has been told. Asserts that the common_IApplicationInfo service is there, for
/// which the file and the line of the caller are named.
common_ActivePtr<common_LockFile> common_lockedUserSettings(AccessMode mode, const char* file,
                                                            int line);
