// SPDX-License-Identifier: MIT
#include <common_CommonSettingsSet.h>

#include "common_DefaultSettings.h"

#include <common_ComponentsLaunchOptions.h>
#include <common_ISplashScreen.h>
#include <common_ServiceOf.h>
#include <common_UserQuery.h>
#include <common_geometry_settings.h>
#include <common_recent_file_settings.h>

#include <QDir>
#include <QFile>

namespace {

/// Hides the splash screen as long as this object exists.
class SplashScreenHidden
{
public:
    SplashScreenHidden()
    {
        if (common_ServiceOf<common_ISplashScreen>::hasService()) {
            GET_SERVICE(common_ISplashScreen)->hide();
        }
    }

    SplashScreenHidden(const SplashScreenHidden&) = delete;
    SplashScreenHidden& operator=(const SplashScreenHidden&) = delete;

    ~SplashScreenHidden()
    {
        if (common_ServiceOf<common_ISplashScreen>::hasService()) {
            GET_SERVICE(common_ISplashScreen)->show();
        }
    }
};

void showMissingDefaults(const QString& defaults, const QString& name)
{
    const SplashScreenHidden splashScreenHidden;
    common_UserQuery(
        QStringLiteral("Missing *.ini file"),
        QStringLiteral("Couldn't find %1\nA default %2.ini file was created.").arg(defaults, name),
        common_UserQuery::Warning, nullptr, QString())
        .display();
}

} // namespace

common_CommonSettingsSet::common_CommonSettingsSet(const QString& directory, const QString& name)
    : m_fullFileName(directory + QDir::separator() + name.toLower() + QStringLiteral(".ini"))
{
    if (!QFile::exists(m_fullFileName)) {
        const QString defaults =
            common_defaultSettingsFile("src/settings/common_CommonSettingsSet.cpp", __LINE__);
        if (!QFile::exists(defaults)) {
            showMissingDefaults(defaults, name.toLower());
        }
    }
    m_geometry = std::make_unique<common_geometry_settings>(m_fullFileName);
    m_recentFiles = std::make_unique<common_recent_file_settings>(m_fullFileName);
}

// NOLINTNEXTLINE(misc-unconventional-assign-operator): the exported signature is kept
common_CommonSettingsSet& common_CommonSettingsSet::operator=(common_CommonSettingsSet& other)
{
    m_geometry = std::move(other.m_geometry);
    m_recentFiles = std::move(other.m_recentFiles);
    m_fullFileName = other.m_fullFileName;
    return *this;
}

common_CommonSettingsSet::~common_CommonSettingsSet() = default;

void common_CommonSettingsSet::restoreDefaults()
{
    restore_geometry_settings();
    restore_recent_file_settings();
}

void common_CommonSettingsSet::readSettings()
{
    m_geometry->readSettings();
    m_recentFiles->readSettings();
}

void common_CommonSettingsSet::writeSettings()
{
    m_geometry->writeSettings();
    m_recentFiles->writeSettings();
}

void common_CommonSettingsSet::restore_geometry_settings()
{
    m_geometry->restoreDefaults();
}

void common_CommonSettingsSet::restore_recent_file_settings()
{
    m_recentFiles->restoreDefaults();
}

common_geometry_settings* common_CommonSettingsSet::geometry() const
{
    return m_geometry.get();
}

common_recent_file_settings* common_CommonSettingsSet::recentFiles() const
{
    return m_recentFiles.get();
}

common_ActivePtr<common_ComponentsLaunchOptions>
common_CommonSettingsSet::getComponentsLaunchOptions() const
{
    return common_ComponentsLaunchOptions::create(ReadOnlyAccess);
}

QString common_CommonSettingsSet::getFullFilename() const
{
    return m_fullFileName;
}
