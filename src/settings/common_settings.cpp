#include <common_settings.h>

#include "common_DefaultSettings.h"
#include "common_SettingsFile.h"

#include <QFile>

common_settings::common_settings(const QString& fileName, const QString& groupName,
                                 QSettings::Format format)
    : m_groupName(groupName), m_fileName(fileName), m_format(format)
{}

common_settings::~common_settings() = default;

QString common_settings::getFileName() const
{
    return m_fileName;
}

void common_settings::readSettings()
{
    if (QFile::exists(m_fileName)) {
        readFrom(m_fileName);
        return;
    }
    const QString defaults =
        common_defaultSettingsFile("src/settings/common_settings.cpp", __LINE__);
    readFrom(QFile::exists(defaults) ? defaults : m_fileName);
}

void common_settings::writeSettings()
{
    const QString failure =
        common_SettingsFile(m_fileName, m_format).change([this](QSettings& settings) {
            settings.beginGroup(m_groupName);
            doWriteSettings(settings);
            settings.endGroup();
        });
    if (!failure.isEmpty()) {
        qWarning("The settings file %s was not written: %s.", qUtf8Printable(m_fileName),
                 qUtf8Printable(failure));
    }
}

void common_settings::readFrom(const QString& fileName)
{
    QSettings settings(fileName, m_format);
    if (fileName == m_fileName) {
        common_SettingsFile(fileName, m_format).keepIfDamaged(settings);
    }
    settings.beginGroup(m_groupName);
    doReadSettings(settings);
    settings.endGroup();
}
