#pragma once

#include <kest_common_export.h>

#include <QSettings>
#include <QString>

/// An object that keeps its values in one group of a settings file, which other objects and other
/// processes share.
class KEST_COMMON_EXPORT common_settings
{
public:
    common_settings(const QString& fileName, const QString& groupName, QSettings::Format format);
    common_settings(const common_settings& other) = default;
    common_settings& operator=(const common_settings& other) = default;
    virtual ~common_settings();

    /// No settings file may be larger, in bytes: reading and writing would take so long that
    /// windows stand still. It is more than a thousand times of what settings need.
    static constexpr qint64 largestFile = 4 << 20;

    /// The settings file, with its path.
    QString getFileName() const;

    /// Why a settings file can be neither read nor written, as part of a sentence: "it is a pipe",
    /// or a device, a socket, a directory, or too large, or may not be read. Empty when nothing is
    /// the matter, or when there is no file yet.
    static QString getFileProblem(const QString& fileName);

    /// Reads the values from the settings file, or from the installation's default.ini while there
    /// is no settings file. What neither holds takes its default.
    ///
    /// A file that is damaged is read as far as possible, and copied once beside itself with
    /// ".damaged" added to its name, of which Qt's log tells. A file with a problem, as
    /// getFileProblem() knows them, is not even opened: all values take their defaults, and Qt's
    /// log says why. Within a doWriteSettings() for the same file, what has been written so far is
    /// read.
    void readSettings();

    /// Writes the values into their group of the settings file and leaves the rest of it as it is.
    ///
    /// Either all of it is written or the file stays as it was, byte for byte, and Qt's log says
    /// why; that is all a failure does. Other processes that write at the same time wait for each
    /// other, for a second at most.
    ///
    /// doWriteSettings() may write other objects, of this file too, and even this one: each of them
    /// is written when its writeSettings() returns, whatever becomes of those around it. What
    /// doWriteSettings() throws is passed on; nothing of the object is written then.
    void writeSettings();

    /// The same; gives the reason for a failure, as part of a sentence, and nothing on success.
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
