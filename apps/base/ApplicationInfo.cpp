// SPDX-License-Identifier: MIT
#include "ApplicationInfo.h"

#include "Installation.h"

#include <common_DefaultServices.h>

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
    return common_DefaultServices::userSettingsDirectory();
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
