#include "ApplicationInfo.h"

#include "Installation.h"

#include <common_EnvironmentVariablesExt.h>

#include <QDir>
#include <QStandardPaths>

#include <utility>

ApplicationInfo::ApplicationInfo(ApplicationIdentity identity) : m_identity(std::move(identity))
{}

QString ApplicationInfo::applicationName() const
{
    return m_identity.name;
}

QString ApplicationInfo::installationDirectory() const
{
    return Installation::directory();
}

QString ApplicationInfo::userSettingsDirectory() const
{
    const QString home = common_EnvironmentVariablesExt::getVariableExpanded("KEST_USER_HOME");
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
    return m_identity.initialRecentFile.isEmpty()
               ? QString()
               : Installation::directory() + QLatin1Char('/') + m_identity.initialRecentFile;
}
