// SPDX-License-Identifier: MIT
#include <common_geometry_settings.h>

namespace {

QString groupName()
{
    return QStringLiteral("geometry");
}

} // namespace

common_geometry_settings::common_geometry_settings(const QString& fileName)
    : common_settings(fileName, groupName(), QSettings::IniFormat)
{}

common_geometry_settings::common_geometry_settings(const common_geometry_settings& other)
    : common_settings(other.getFileName(), groupName(), QSettings::IniFormat)
    , // NOLINT(*-init)
    m_values(other.m_values)
{}

common_geometry_settings::~common_geometry_settings() = default;

void common_geometry_settings::copy(const common_geometry_settings& other)
{
    m_values = other.m_values;
}

void common_geometry_settings::restoreDefaults()
{
    m_values = Values();
}

void common_geometry_settings::doReadSettings(QSettings& settings)
{
    const Values defaults;
    m_values.xPosition = settings.value(QStringLiteral("x_pos"), defaults.xPosition).toInt();
    m_values.yPosition = settings.value(QStringLiteral("y_pos"), defaults.yPosition).toInt();
    m_values.width = settings.value(QStringLiteral("width"), defaults.width).toInt();
    m_values.height = settings.value(QStringLiteral("height"), defaults.height).toInt();
    m_values.maximised = settings.value(QStringLiteral("isMaximised"), defaults.maximised).toBool();
}

void common_geometry_settings::doWriteSettings(QSettings& settings)
{
    settings.setValue(QStringLiteral("x_pos"), m_values.xPosition);
    settings.setValue(QStringLiteral("y_pos"), m_values.yPosition);
    settings.setValue(QStringLiteral("width"), m_values.width);
    settings.setValue(QStringLiteral("height"), m_values.height);
    settings.setValue(QStringLiteral("isMaximised"), m_values.maximised);
}
