// SPDX-License-Identifier: MIT
#pragma once

#include "RunArchive.h"

/// The limits of the run archive from the user's settings.
namespace ArchiveLimits {

/// Reads the settings now.
RunArchive::Limits ofUser();

} // namespace ArchiveLimits
