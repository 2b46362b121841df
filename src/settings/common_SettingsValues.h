#pragma once

#include <QMap>
#include <QString>
#include <QVariant>

#include <functional>

class QSettings;

/// All values of a settings file by their whole keys, groups included.
///
/// A file can also hold keys that nobody can ask for; these are not among them. QSettings takes
/// them for one another, in a time that grows with the square of their length.
class common_SettingsValues
{
public:
    /// Whether one can ask for a value of that key.
    static bool isProper(const QString& key);

    common_SettingsValues() = default;
    explicit common_SettingsValues(const QSettings& settings);

    /// Whether the same values came back from a file: types change on the way through it.
    bool areSame(const common_SettingsValues& read) const;

    /// How many values there are of which nothing could be read, or that are meant to be nothing.
    int countNothing() const;

    /// Makes the settings, in no group, hold these values and no others.
    void applyTo(QSettings& settings) const;

    /// Makes the settings, in no group, hold what these values have under keys of that prefix, and
    /// what they have under others that is not as it was before.
    void applyChangesTo(QSettings& settings, const common_SettingsValues& before,
                        const QString& prefix) const;

private:
    bool hasSame(const QString& key, const common_SettingsValues& other) const;
    void apply(QSettings& settings, const std::function<bool(const QString&)>& isWanted) const;

    QMap<QString, QVariant> m_values;
};
