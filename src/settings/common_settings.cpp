// SPDX-License-Identifier: MIT
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

QString common_settings::getFileProblem(const QString& fileName)
{
    return common_SettingsFile(fileName, QSettings::IniFormat).problem();
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
    tryWriteSettings();
}

QString common_settings::tryWriteSettings()
{
    QString failure =
        common_SettingsFile(m_fileName, m_format).change(m_groupName, [this](QSettings& settings) {
            doWriteSettings(settings);
        });
    if (!failure.isEmpty()) {
        qWarning("The settings file %s was not written: %s.", qUtf8Printable(m_fileName),
                 qUtf8Printable(failure));
    }
    return failure;
}

void common_settings::readFrom(const QString& fileName)
{
    using File = common_SettingsFile;
    File(fileName, m_format)
        .read(
            m_groupName, [this](QSettings& settings) { doReadSettings(settings); },
            fileName == m_fileName ? File::Damage::KeepCopy : File::Damage::Ignore);
}
