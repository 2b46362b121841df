// SPDX-License-Identifier: MIT
#pragma once

#include "common_SettingsValues.h"

#include <QByteArray>
#include <QSettings>
#include <QString>
#include <QTemporaryDir>

#include <functional>

/// A copy of a settings file, in a temporary folder, to which a change is made. The result is read
/// back under another name, because QSettings does not notice a short write, and caches the values
/// that it meant to write under the first name.
class common_SettingsDraft
{
public:
    /// Makes a folder whose name begins with this path.
    explicit common_SettingsDraft(const QString& folder);

    QString fileName() const;

    /// Fills the copy. Empty on success, else the reason for the failure.
    QString begin(const QByteArray& content);

    /// Changes the copy. Exceptions of change are passed on.
    void change(QSettings::Format format, const std::function<void(QSettings&)>& change);

    /// Reads the copy back. Empty on success, else the reason for the failure.
    QString finish(QSettings::Format format);

    /// The values after the change, also when there was no room to write them.
    const common_SettingsValues& values() const { return m_values; }

    /// The copy's bytes, after finish().
    const QByteArray& content() const { return m_content; }

private:
    bool readBack(QSettings::Format format);
    bool isSavedAs(const QString& name, QSettings::Format format) const;
    QString noRoom() const;

    QTemporaryDir m_folder;
    QString m_place;
    QString m_name = QStringLiteral("settings");
    common_SettingsValues m_values;
    QByteArray m_content;
};
