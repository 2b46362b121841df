#pragma once

#include <common_ActivePtr.h>
#include <kest_common_export.h>

#include <QString>

#include <memory>

class common_ComponentsLaunchOptions;
class common_geometry_settings;
class common_recent_file_settings;

/// What every application of the suite keeps about itself in a settings file of its own.
class KEST_COMMON_EXPORT common_CommonSettingsSet
{
public:
    /// The file is directory/name.ini, the name in lower case. Nothing is read or written yet. When
    /// neither that file nor the installation's default.ini exists, the user is told. Needs the
    /// service common_IApplicationInfo; a common_ISplashScreen is hidden for that while.
    common_CommonSettingsSet(const QString& directory, const QString& name);
    common_CommonSettingsSet(const common_CommonSettingsSet&) = delete;

    /// Takes over the other's geometry and recent files, which it then has no more.
    // NOLINTNEXTLINE(misc-unconventional-assign-operator): the exported signature is kept
    common_CommonSettingsSet& operator=(common_CommonSettingsSet& other);

    virtual ~common_CommonSettingsSet();

    virtual void restoreDefaults();
    virtual void readSettings();
    virtual void writeSettings();

    void restore_geometry_settings();
    void restore_recent_file_settings();

    /// Not the caller's; null after another set has taken it over.
    common_geometry_settings* geometry() const;

    /// Not the caller's; null after another set has taken it over.
    common_recent_file_settings* recentFiles() const;

    /// The launch options as they are in the user's file now; read-only, and new on each call.
    common_ActivePtr<common_ComponentsLaunchOptions> getComponentsLaunchOptions() const;

    QString getFullFilename() const;

private:
    std::unique_ptr<common_geometry_settings> m_geometry;
    std::unique_ptr<common_recent_file_settings> m_recentFiles;
    QString m_fullFileName;
};
