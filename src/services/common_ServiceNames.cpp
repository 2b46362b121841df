// SPDX-License-Identifier: MIT
#include <common_ServiceNames.h>

QStringList common_ServiceNames::all()
{
    QStringList names;
    for (const char* const name : {helpClient, application, applicationInfo, iconUtility,
                                   pixmapUtility, scriptRecorder, session, splashScreen}) {
        names.append(QLatin1String(name));
    }
    return names;
}
