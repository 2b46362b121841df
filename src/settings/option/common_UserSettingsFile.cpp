// SPDX-License-Identifier: MIT
#include "common_UserSettingsFile.h"

#include <common_IApplicationInfo.h>
#include <common_ServiceOf.h>

#include <QDir>

common_ActivePtr<common_LockFile> common_lockedUserSettings(AccessMode mode, const char* file,
                                                            int line)
{
    const QString path =
        common_ServiceOf<common_IApplicationInfo>::getService("common_IApplicationInfo", file, line)
            ->userSettingsDirectory() +
        QDir::separator() + QStringLiteral("kest.ini");
    common_ActivePtr<common_LockFile> lockFile(new common_LockFile(QFileInfo(path)));
    if (mode != ReadOnlyAccess && !lockFile->lock(false)) {
        lockFile.reset();
    }
    return lockFile;
}
