// SPDX-License-Identifier: MIT
#pragma once

#include <kest_common_export.h>

#include <QSettings>
#include <QString>

/// Base of objects that keep their values in one group of a settings file, which they share with
/// other objects and processes.
///
/// readSettings() and restoreDefaults() need the service common_IApplicationInfo, for the
/// installation's default.ini. Nothing here takes a lock: hold a common_SettingsLock while settings
/// are read, changed and written back.
class KEST_COMMON_EXPORT common_settings
{
public:
    /// Nothing is read yet. The file need not exist.
    common_settings(const QString& fileName, const QString& groupName, QSettings::Format format);
    common_settings(const common_settings& other) = default;
    common_settings& operator=(const common_settings& other) = default;
    virtual ~common_settings();

    /// The largest size of a settings file, in bytes. Larger ones would take so long to read and
    /// write that windows freeze. Settings need less than a thousandth of it.
    static constexpr qint64 largestFile = 4 << 20;

    /// The settings file, with its path.
    QString getFileName() const;

    /// Why a settings file can be neither read nor written, as part of a sentence such as "it is a
    /// pipe": it is not a regular file, is too large, or may not be read. Empty when there is no
    /// problem, or no file yet.
    static QString getFileProblem(const QString& fileName);

    /// Reads the values from the settings file, or from the installation's default.ini while there
    /// is no settings file. What neither holds takes its default.
    ///
    /// A damaged file is read as far as possible. A copy of it is kept once, with ".damaged" added
    /// to the name, which is logged as a warning. A file for which getFileProblem() gives a reason
    /// is not opened: all values take their defaults, and the reason is logged. Within a
    /// doWriteSettings() for the same file, the values written so far are read.
    void readSettings();

    /// Writes the values into their group of the settings file and leaves the rest of it as it is.
    ///
    /// Either everything is written, or the file stays as it was, byte for byte, and the reason is
    /// logged as a warning. Processes that write at the same time wait for each other, at most for
    /// a second.
    ///
    /// doWriteSettings() may call writeSettings() of other objects, also of this file, and even of
    /// this object: each is written when its writeSettings() returns, even if an outer one fails.
    /// An exception of doWriteSettings() is passed on; then nothing of this object is written.
    void writeSettings();

    /// The same. Returns an empty text on success, or else the reason as part of a sentence.
    QString tryWriteSettings();

protected:
    /// Gives every value its default.
    virtual void restoreDefaults() = 0;

    /// Reads the values; the group is open.
    virtual void doReadSettings(QSettings& settings) = 0;

    /// Writes the values; the group is open.
    virtual void doWriteSettings(QSettings& settings) = 0;

private:
    common_settings() = default;

    void readFrom(const QString& fileName);

    QString m_groupName;
    QString m_fileName;
    QSettings::Format m_format = QSettings::InvalidFormat;
};
