// SPDX-License-Identifier: MIT
#include "common_DefaultSettings.h"

#include <common_IApplicationInfo.h>
#include <common_ServiceOf.h>

#include <QDir>
#include <QString>

QString common_defaultSettingsFile(const char* file, int line)
{
    return common_ServiceOf<common_IApplicationInfo>::getService("common_IApplicationInfo", file,
                                                                 line)
               ->defaultSettingsDirectory() +
           QDir::separator() + QStringLiteral("default.ini");
}
