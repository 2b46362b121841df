// SPDX-License-Identifier: MIT
#pragma once

#include <QSettings>
#include <QString>

#include <functional>
#include <memory>

class common_SettingsDraft;

/// Reads and changes a settings file as a whole. QSettings alone leaves an empty or a cut file when
/// the disk is full, without reporting it, and waits long for other writers, and for ever for pipes
/// and devices.
class common_SettingsFile
{
public:
    using Access = std::function<void(QSettings&)>;

    /// What to do with a file that is damaged.
    enum class Damage { KeepCopy, Ignore };

    common_SettingsFile(const QString& fileName, QSettings::Format format);

    /// Why the file cannot be used, such as "it is a pipe"; empty when it can, or does not exist
    /// yet.
    QString problem() const;

    /// Calls read with the group open. A file that cannot be used has no values; the reason is
    /// logged. During a change of the file in this process, the changed values are read.
    void read(const QString& group, const Access& read, Damage damage) const;

    /// Calls write with the group open and the file's present content, and saves the result.
    /// Returns an empty text on success, or else the reason; then the file is unchanged. It is also
    /// unchanged when write throws.
    ///
    /// Within another change of the file in this process, write sees the values of that change,
    /// which also gets its values. Only the group of the inner change is saved at once.
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
