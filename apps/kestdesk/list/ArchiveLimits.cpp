// SPDX-License-Identifier: MIT
#include "ArchiveLimits.h"

#include "KestdeskSettings.h"

RunArchive::Limits ArchiveLimits::ofUser()
{
    const KestdeskSettings settings = KestdeskSettings::read();
    return {settings.archiveDays(), settings.archiveMegabytes()};
}
