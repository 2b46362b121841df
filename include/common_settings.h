#ifndef COMMON_SETTINGS_H
#define COMMON_SETTINGS_H

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

    /// The settings file, with its path.
    QString getFileName() const;

    /// Reads the values from the settings file, or from the installation's default.ini while there
    /// is no settings file. What neither holds takes its default.
    ///
    /// A file that is damaged is read as far as possible, and copied once beside itself with
    /// ".damaged" added to its name, of which Qt's log tells.
    void readSettings();

    /// Writes the values into their group of the settings file and leaves the rest of it as it is.
    ///
    /// Either all of it is written or the file stays as it was, byte for byte, and Qt's log says
    /// why; that is all a failure does, so an application that must know reads again. Other
    /// processes that write at the same time wait for each other, for a second at most.
    void writeSettings();

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

#endif
