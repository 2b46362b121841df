#pragma once

#include <QSettings>
#include <QString>

#include <functional>
#include <memory>

class common_SettingsDraft;

/// Reads and changes a settings file as a whole: QSettings itself leaves an empty or a cut file
/// behind when the disk is full, without a word, and waits long or for ever for other writers and
/// for whatever is no file.
class common_SettingsFile
{
public:
    using Access = std::function<void(QSettings&)>;

    /// What becomes of a file of which not all can be read.
    enum class Damage { KeepCopy, Ignore };

    common_SettingsFile(const QString& fileName, QSettings::Format format);

    /// Why the file cannot be used, as "it is a pipe"; empty when it can, or is not there yet.
    QString problem() const;

    /// Calls read with the group open. A file that cannot be used has no values; Qt's log says why.
    /// A change of the file that is going on in this process can be seen.
    void read(const QString& group, const Access& read, Damage damage) const;

    /// Calls write with the group open and the file's present content, and saves the outcome. Empty
    /// on success, else the reason why the file is as it was. When write throws, the file is as it
    /// was, too.
    ///
    /// Within another change of the file in this process, what write sees and leaves is also part
    /// of that; the group is saved at once all the same, and nothing else of the change around it.
    QString change(const QString& group, const Access& write) const;

private:
    QString load(QByteArray& content) const;
    std::unique_ptr<common_SettingsDraft> repairedCopy(const QByteArray& content,
                                                       QString& failure) const;
    bool keepIfDamaged(const QSettings& settings, const QByteArray& content) const;
    QString changeAlone(const QString& file, const QString& group, const Access& write) const;
    QString changeWithin(const QString& copy, const QString& group, const Access& write) const;
    QString rewrite(const Access& fill) const;
    QString replace(const QByteArray& content) const;

    QString m_fileName;
    QSettings::Format m_format;
};
