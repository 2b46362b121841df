// SPDX-License-Identifier: MIT
#pragma once

#include <common_settings.h>
#include <kest_common_export.h>

#include <QStringList>

/// The files that were opened last, newest first, in native separators: the group "recentFiles" of
/// an application's settings file.
class KEST_COMMON_EXPORT common_recent_file_settings : public common_settings
{
public:
    /// At most 8 files; none yet.
    explicit common_recent_file_settings(const QString& fileName);

    /// Copies the file name and the list, but neither the maximum, which becomes 8, nor the session
    /// flag. Assignment copies everything.
    common_recent_file_settings(const common_recent_file_settings& other);
    common_recent_file_settings& operator=(const common_recent_file_settings& other) = default;
    ~common_recent_file_settings() override;

    /// The paths, newest first.
    QStringList recentFiles() const { return m_recentFiles; }

    /// Removes the first entry that contains the path, and puts the path first, in place of the
    /// oldest entry when the list is full. If the path is still in the list, nothing is inserted.
    void addRecentFile(const QString& path);

    /// Removes the first entry; asserts that there is one.
    void removeNewestFile();

    /// How many files the list takes.
    int getMaxRecentFiles() const { return m_maxRecentFiles; }
    /// Does not shorten the list.
    void setMaxRecentFiles(int count) { m_maxRecentFiles = count; }

    /// Whether the application offers to restore the last session.
    bool getRecentSession() const { return m_recentSession; }
    /// See getRecentSession().
    void setRecentSession(bool offered) { m_recentSession = offered; }

    /// Copies the list of the other object, and nothing else.
    void copy(const common_recent_file_settings& other);

    /// No files, no session.
    void restoreDefaults() override;

protected:
    /// Appends the files of the settings file that are not unreadable. When the list is empty then,
    /// appends the application's initial file, for which the service common_IApplicationInfo is
    /// needed.
    void doReadSettings(QSettings& settings) override;
    void doWriteSettings(QSettings& settings) override;

private:
    int m_maxRecentFiles = 8;
    bool m_recentSession = false;
    QStringList m_recentFiles;
};
