#ifndef COMMON_SETTINGSFILE_H
#define COMMON_SETTINGSFILE_H

#include <QSettings>
#include <QString>

#include <functional>

/// Changes a settings file as a whole: QSettings itself leaves an empty or a cut file behind when
/// the disk is full, without a word, and waits long or for ever for other writers.
class common_SettingsFile
{
public:
    common_SettingsFile(const QString& fileName, QSettings::Format format);

    /// Calls change with the file's present content and writes the outcome. Empty on success, else
    /// the reason why the file is as it was.
    QString change(const std::function<void(QSettings&)>& change) const;

    /// Keeps a copy of the file as it is, once, when not all of its content could be read, because
    /// that is lost with the next write. Qt's log names both.
    void keepIfDamaged(const QSettings& content) const;

private:
    QString changeUnderGuard(const std::function<void(QSettings&)>& change) const;
    QString replace(const QByteArray& content) const;

    QString m_fileName;
    QSettings::Format m_format;
};

#endif
