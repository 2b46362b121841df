// SPDX-License-Identifier: MIT
#pragma once

#include <common_settings.h>

#include <QString>
#include <QVector>

/// The user's preferences for kestdesk itself: the group "preferences" of its settings file.
/// Invalid values in the file are replaced by their defaults.
class KestdeskSettings : public common_settings
{
public:
    enum Setting {
        Notifies,
        OpensLastModel,
        AsksBeforeStopping,
        SecondsUntilAsking,
        RunsAtOnce,
        ArchiveDays,
        ArchiveMegabytes,
        SettingCount
    };

    /// A row of the table of settings. The values of a switch are 0 and 1.
    struct Row
    {
        Setting setting;
        const char* key; ///< in the file
        Setting needs;   ///< the switch that enables this setting; itself for none
        bool isSwitch;
        int usual; ///< the default
        int least;
        int most;
        const char* group; ///< title of the group on the page
        const char* label;
        const char* unit; ///< of the number; may be empty
        const char* hint;
    };

    /// Sets the defaults. readSettings() reads the file.
    explicit KestdeskSettings(const QString& fileName);

    /// Reads the user's settings file now. Needs the service common_IApplicationInfo.
    static KestdeskSettings read();

    /// One row for each setting, in their order.
    static const QVector<Row>& rows();

    /// A text of a row, in the user's language.
    static QString shown(const char* text);

    /// Whether a desktop notification is shown when a run ends while another window is active.
    bool notifies() const { return value(Notifies) != 0; }

    /// Whether the window starts with the model of the last session.
    bool opensLastModel() const { return value(OpensLastModel) != 0; }

    /// Whether a question is shown before a run is stopped that has taken some time.
    bool asksBeforeStopping() const { return value(AsksBeforeStopping) != 0; }

    /// The running time from which on the question is shown, in seconds; 0 or more.
    int secondsUntilAsking() const { return value(SecondsUntilAsking); }

    /// The number of simultaneous runs of the queue; 1 or more.
    int runsAtOnce() const { return value(RunsAtOnce); }

    /// How long records are kept, in days; 1 or more.
    int archiveDays() const { return value(ArchiveDays); }

    /// Limit for the size of all records, in megabytes; 1 or more.
    int archiveMegabytes() const { return value(ArchiveMegabytes); }

    int value(Setting setting) const { return m_values.at(setting); }

    /// Sets a value, clamped to the limits of the setting.
    void setValue(Setting setting, int number);

    void restoreDefaults() override;

protected:
    void doReadSettings(QSettings& settings) override;
    void doWriteSettings(QSettings& settings) override;

private:
    QVector<int> m_values; ///< by Setting
};
