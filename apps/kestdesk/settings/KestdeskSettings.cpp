// SPDX-License-Identifier: MIT
#include "KestdeskSettings.h"

#include <common_IApplicationInfo.h>
#include <common_ServiceOf.h>

#include <QCoreApplication>
#include <QSettings>
#include <QVariant>

#include <algorithm>

namespace {

using Row = KestdeskSettings::Row;

constexpr int mostRunsAtOnce = 64;
constexpr int mostSeconds = 86400; // a day
constexpr int mostDays = 36500;    // a hundred years
constexpr int mostMegabytes = 1000000;

QVariant stored(const Row& row, int number)
{
    return row.isSwitch ? QVariant(number != 0) : QVariant(number);
}

int switchNumber(const QString& text, int usual)
{
    if (text == QLatin1String("true") || text == QLatin1String("1")) {
        return 1;
    }
    return text == QLatin1String("false") || text == QLatin1String("0") ? 0 : usual;
}

int numberOf(const Row& row, const QVariant& value)
{
    const QString text = value.toString();
    if (row.isSwitch) {
        return switchNumber(text, row.usual);
    }
    bool isNumber = false;
    const int number = text.toInt(&isNumber);
    return isNumber && number >= row.least && number <= row.most ? number : row.usual;
}

QVector<int> defaults()
{
    QVector<int> result;
    const QVector<Row>& rows = KestdeskSettings::rows();
    std::transform(rows.begin(), rows.end(), std::back_inserter(result),
                   [](const Row& row) { return row.usual; });
    return result;
}

} // namespace

KestdeskSettings::KestdeskSettings(const QString& fileName)
    : common_settings(fileName, QStringLiteral("preferences"), QSettings::IniFormat)
    , m_values(defaults())
{}

KestdeskSettings KestdeskSettings::read()
{
    KestdeskSettings result(GET_SERVICE(common_IApplicationInfo)->userSettingsDirectory() +
                            QStringLiteral("/kestdesk.ini"));
    result.readSettings();
    return result;
}

const QVector<Row>& KestdeskSettings::rows()
{
    // clang-format off
    static const QVector<Row> table = {
        {KestdeskSettings::Notifies,           "notifications",      KestdeskSettings::Notifies,           true,  1,    0, 1,              QT_TRANSLATE_NOOP("KestdeskSettings", "Window"),        QT_TRANSLATE_NOOP("KestdeskSettings", "Show a &notification when a run ends"), "",      QT_TRANSLATE_NOOP("KestdeskSettings", "Only while another window has the attention")},
        {KestdeskSettings::OpensLastModel,     "openLastModel",      KestdeskSettings::OpensLastModel,     true,  1,    0, 1,              QT_TRANSLATE_NOOP("KestdeskSettings", "Window"),        QT_TRANSLATE_NOOP("KestdeskSettings", "Start with the last &model"),           "",      QT_TRANSLATE_NOOP("KestdeskSettings", "Without it, the window starts without a model")},
        {KestdeskSettings::AsksBeforeStopping, "askBeforeStopping",  KestdeskSettings::AsksBeforeStopping, true,  1,    0, 1,              QT_TRANSLATE_NOOP("KestdeskSettings", "Runs"),          QT_TRANSLATE_NOOP("KestdeskSettings", "&Ask before a run is stopped"),         "",      QT_TRANSLATE_NOOP("KestdeskSettings", "Closing the window during runs always asks")},
        {KestdeskSettings::SecondsUntilAsking, "askAfterSeconds",    KestdeskSettings::AsksBeforeStopping, false, 10,   0, mostSeconds,    QT_TRANSLATE_NOOP("KestdeskSettings", "Runs"),          QT_TRANSLATE_NOOP("KestdeskSettings", "Once it has taken at &least:"),         QT_TRANSLATE_NOOP("KestdeskSettings", "s"),     QT_TRANSLATE_NOOP("KestdeskSettings", "A run that has just started is stopped without a question")},
        {KestdeskSettings::RunsAtOnce,         "runsAtOnce",         KestdeskSettings::RunsAtOnce,         false, 1,    1, mostRunsAtOnce, QT_TRANSLATE_NOOP("KestdeskSettings", "Runs"),          QT_TRANSLATE_NOOP("KestdeskSettings", "&Runs at the same time:"),              "",      QT_TRANSLATE_NOOP("KestdeskSettings", "How many runs of the queue go at the same time; each may use several processors")},
        {KestdeskSettings::ArchiveDays,        "archiveDays",        KestdeskSettings::ArchiveDays,        false, 90,   1, mostDays,       QT_TRANSLATE_NOOP("KestdeskSettings", "Past runs"),     QT_TRANSLATE_NOOP("KestdeskSettings", "&Keep the record of a run for:"),       QT_TRANSLATE_NOOP("KestdeskSettings", "days"),  QT_TRANSLATE_NOOP("KestdeskSettings", "Older records are deleted; models and results are not")},
        {KestdeskSettings::ArchiveMegabytes,   "archiveMegabytes",   KestdeskSettings::ArchiveMegabytes,   false, 1000, 1, mostMegabytes,  QT_TRANSLATE_NOOP("KestdeskSettings", "Past runs"),     QT_TRANSLATE_NOOP("KestdeskSettings", "Use at most:"),                         QT_TRANSLATE_NOOP("KestdeskSettings", "MB"),    QT_TRANSLATE_NOOP("KestdeskSettings", "Beyond that the oldest records are deleted; models and results are not")},
    };
    // clang-format on
    return table;
}

QString KestdeskSettings::shown(const char* text)
{
    return QCoreApplication::translate("KestdeskSettings", text);
}

void KestdeskSettings::setValue(Setting setting, int number)
{
    const Row& row = rows().at(setting);
    m_values[setting] = std::clamp(number, row.least, row.most);
}

void KestdeskSettings::restoreDefaults()
{
    m_values = defaults();
}

void KestdeskSettings::doReadSettings(QSettings& settings)
{
    for (const Row& row : rows()) {
        m_values[row.setting] = numberOf(row, settings.value(QLatin1String(row.key), row.usual));
    }
}

void KestdeskSettings::doWriteSettings(QSettings& settings)
{
    for (const Row& row : rows()) {
        settings.setValue(QLatin1String(row.key), stored(row, m_values.at(row.setting)));
    }
}
