// SPDX-License-Identifier: MIT
#pragma once

#include <common_ActivePtr.h>
#include <kest_common_export.h>

#include <QString>

#include <memory>

class common_ComponentsLaunchOptions;
class common_geometry_settings;
class common_recent_file_settings;

/// The settings that every application of the suite keeps in a settings file of its own.
class KEST_COMMON_EXPORT common_CommonSettingsSet
{
public:
    /// The file is directory/name.ini, the name in lower case. Nothing is read or written yet. When
    /// neither that file nor the installation's default.ini exists, shows a message to the user,
    /// for which a common_ISplashScreen is hidden. Needs the service common_IApplicationInfo, as do
    /// reading and restoring.
    common_CommonSettingsSet(const QString& directory, const QString& name);
    common_CommonSettingsSet(const common_CommonSettingsSet&) = delete;

    /// Takes the geometry and recent files from the other set, whose pointers become null.
    // NOLINTNEXTLINE(misc-unconventional-assign-operator): the exported signature is kept
    common_CommonSettingsSet& operator=(common_CommonSettingsSet& other);

    virtual ~common_CommonSettingsSet();

    /// Restores the defaults of geometry and recent files. Nothing is written.
    virtual void restoreDefaults();
    /// Reads geometry and recent files from the file.
    virtual void readSettings();
    /// Writes geometry and recent files to the file.
    virtual void writeSettings();

    /// Restores the defaults of the geometry alone. Nothing is written.
    void restore_geometry_settings();
    /// Restores the defaults of the recent files alone. Nothing is written.
    void restore_recent_file_settings();

    /// Owned by this set; null after another set has taken it.
    common_geometry_settings* geometry() const;

    /// Owned by this set; null after another set has taken it.
    common_recent_file_settings* recentFiles() const;

    /// A new read-only object with the launch options that are in the user's file now.
    common_ActivePtr<common_ComponentsLaunchOptions> getComponentsLaunchOptions() const;

    /// The settings file, with its path.
    QString getFullFilename() const;

private:
    std::unique_ptr<common_geometry_settings> m_geometry;
    std::unique_ptr<common_recent_file_settings> m_recentFiles;
    QString m_fullFileName;
};
