// SPDX-License-Identifier: MIT
#include "SettingsKeys.h"

QString SettingsKeys::comparable(const QString& key)
{
    return key.toLower(); // as QSettings does
}
