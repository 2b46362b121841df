#include "ApplicationInfo.h"

#include "Installation.h"

#include <QDir>
#include <QStandardPaths>

QString ApplicationInfo::applicationName() const
{
    return QStringLiteral("kestdesk");
}

QString ApplicationInfo::installationDirectory() const
{
    return Installation::directory();
}

QString ApplicationInfo::userSettingsDirectory() const
{
    const QString home = qEnvironmentVariable("KEST_USER_HOME");
    return home.isEmpty()
               ? QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
                     QStringLiteral("/kest")
               : QDir(home).absolutePath();
}

QString ApplicationInfo::defaultSettingsDirectory() const
{
    return Installation::directory();
}

QString ApplicationInfo::initialRecentFile() const
{
    return Installation::directory() + QStringLiteral("/models/dipole.nec");
}
