#pragma once

#include "RunArchive.h"

/// What the user lets the archive of runs hold.
namespace ArchiveLimits {

/// As the user's settings are now.
RunArchive::Limits ofUser();

} // namespace ArchiveLimits
