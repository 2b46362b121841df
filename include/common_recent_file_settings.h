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

    /// Takes the file name and the list, but not the maximum, which is 8 again, nor the session
    /// flag. Assignment takes everything.
    common_recent_file_settings(const common_recent_file_settings& other);
    common_recent_file_settings& operator=(const common_recent_file_settings& other) = default;
    ~common_recent_file_settings() override;

    QStringList recentFiles() const { return m_recentFiles; }

    /// Puts the path first, in place of the first entry that contains it; drops the oldest entry
    /// when the list is full. Where the very path still stands in the list then, it stays there.
    void addRecentFile(const QString& path);

    /// Asserts that there is one.
    void removeNewestFile();

    int getMaxRecentFiles() const { return m_maxRecentFiles; }
    void setMaxRecentFiles(int count) { m_maxRecentFiles = count; }

    /// Whether the last session is to be offered again.
    bool getRecentSession() const { return m_recentSession; }
    void setRecentSession(bool offered) { m_recentSession = offered; }

    /// Takes the list of the other, and nothing else.
    void copy(const common_recent_file_settings& other);

    /// No files, no session.
    void restoreDefaults() override;

protected:
    /// Adds the readable files of the settings file to those in the list, and the application's
    /// initial file when there is none. Needs the service common_IApplicationInfo for that.
    void doReadSettings(QSettings& settings) override;
    void doWriteSettings(QSettings& settings) override;

private:
    int m_maxRecentFiles = 8;
    bool m_recentSession = false;
    QStringList m_recentFiles;
};
