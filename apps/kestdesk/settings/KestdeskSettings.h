#pragma once

#include <common_settings.h>

#include <QString>
#include <QVector>

/// What the user has set for kestdesk itself: the group "preferences" of its settings file. Values
/// in the file that make no sense take their defaults. Knows no window.
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

    /// A row of the table of settings. A switch has the numbers 0 and 1.
    struct Row
    {
        Setting setting;
        const char* key; ///< in the file
        Setting needs;   ///< the switch without which this has no effect; itself for none
        bool isSwitch;
        int usual; ///< the default
        int least;
        int most;
        const char* group; ///< title of the group on the page
        const char* label;
        const char* unit; ///< of the number; empty where it needs none
        const char* hint;
    };

    /// Has the defaults until readSettings().
    explicit KestdeskSettings(const QString& fileName);

    /// As they are in the user's file now. Needs the service common_IApplicationInfo.
    static KestdeskSettings read();

    /// One row for each setting, in their order.
    static const QVector<Row>& rows();

    /// Whether the desktop shows a notification when a run has ended behind other windows.
    bool notifies() const { return value(Notifies) != 0; }

    /// Whether the window starts with the model of the last session.
    bool opensLastModel() const { return value(OpensLastModel) != 0; }

    /// Whether the user is asked before a run is stopped that has taken some time.
    bool asksBeforeStopping() const { return value(AsksBeforeStopping) != 0; }

    /// How long a run has taken at least before the user is asked, in seconds; 0 or more.
    int secondsUntilAsking() const { return value(SecondsUntilAsking); }

    /// How many runs of a queue go at the same time; 1 or more.
    int runsAtOnce() const { return value(RunsAtOnce); }

    /// How long the record of a run is kept, in days; 1 or more.
    int archiveDays() const { return value(ArchiveDays); }

    /// The most that the records of all runs take, in megabytes; 1 or more.
    int archiveMegabytes() const { return value(ArchiveMegabytes); }

    int value(Setting setting) const { return m_values.at(setting); }

    /// A number beyond the limits of the setting becomes the nearest one within.
    void setValue(Setting setting, int number);

    void restoreDefaults() override;

protected:
    void doReadSettings(QSettings& settings) override;
    void doWriteSettings(QSettings& settings) override;

private:
    QVector<int> m_values; ///< by Setting
};
