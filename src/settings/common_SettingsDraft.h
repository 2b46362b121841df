#pragma once

#include "common_SettingsValues.h"

#include <QByteArray>
#include <QSettings>
#include <QString>
#include <QTemporaryDir>

#include <functional>

/// A copy of a settings file in a temporary folder, that a change is made to. What has become of it
/// is read back under another name, because QSettings does not notice a short write and remembers
/// what it meant to write under the first.
class common_SettingsDraft
{
public:
    /// The folder is made with a name that begins so.
    explicit common_SettingsDraft(const QString& folder);

    QString fileName() const;

    /// Fills the copy. Empty on success, else the reason for the failure.
    QString begin(const QByteArray& content);

    /// Changes the copy. What change throws is not caught.
    void change(QSettings::Format format, const std::function<void(QSettings&)>& change);

    /// Reads the copy back. Empty on success, else the reason for the failure.
    QString finish(QSettings::Format format);

    /// What the change has led to, also where there was no room to write it.
    const common_SettingsValues& values() const { return m_values; }

    /// The copy's bytes, after finish().
    const QByteArray& content() const { return m_content; }

private:
    bool readBack(QSettings::Format format);
    QString noRoom() const;

    QTemporaryDir m_folder;
    QString m_place;
    QString m_name = QStringLiteral("settings");
    common_SettingsValues m_values;
    QByteArray m_content;
};
