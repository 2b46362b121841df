#include "SettingsKeys.h"

QString SettingsKeys::comparable(const QString& key)
{
    return key;
}
