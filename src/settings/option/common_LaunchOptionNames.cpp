// SPDX-License-Identifier: MIT
#include <common_LaunchOptionNames.h>

#include "common_LaunchOptionTable.h"

QStringList common_LaunchOptionNames::all()
{
    QStringList names;
    for (const common_LaunchOption& option : common_LaunchOptionTable::options()) {
        names.append(QLatin1String(option.key));
    }
    return names;
}
