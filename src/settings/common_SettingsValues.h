// SPDX-License-Identifier: MIT
#pragma once

#include <QMap>
#include <QString>
#include <QVariant>

#include <functional>

class QSettings;

/// All values of a settings file by their full keys, which include the groups.
///
/// Keys that QSettings cannot look up are left out. A damaged file can contain them; QSettings
/// confuses them with each other, in a time that grows with the square of their length.
class common_SettingsValues
{
public:
    /// Whether QSettings can look the key up.
    static bool isProper(const QString& key);

    common_SettingsValues() = default;
    explicit common_SettingsValues(const QSettings& settings);

    /// Whether the values that were read back from a file are the same, apart from their types.
    bool areSame(const common_SettingsValues& read) const;

    /// The number of invalid values: those that could not be read, and those stored as invalid.
    int countNothing() const;

    /// Replaces all values of the settings by these. No group may be open.
    void applyTo(QSettings& settings) const;

    /// Copies to the settings the values with that prefix, and those of all others that differ from
    /// before. No group may be open.
    void applyChangesTo(QSettings& settings, const common_SettingsValues& before,
                        const QString& prefix) const;

private:
    // These take comparable keys.
    bool hasSame(const QString& key, const common_SettingsValues& other) const;
    void apply(QSettings& settings, const std::function<bool(const QString&)>& isWanted) const;

    struct Value
    {
        QString key; ///< as it is written in the file
        QVariant value;
    };

    QMap<QString, Value> m_values; ///< by their comparable keys
};
