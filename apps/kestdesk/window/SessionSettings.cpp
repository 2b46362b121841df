// SPDX-License-Identifier: MIT
#include "SessionSettings.h"

#include <QSettings>

namespace {

const QString modelKey = QStringLiteral("model");
const QString componentKey = QStringLiteral("component");

} // namespace

SessionSettings::SessionSettings(const QString& fileName)
    : common_settings(fileName, QStringLiteral("session"), QSettings::IniFormat)
{}

void SessionSettings::restoreDefaults()
{
    m_model.clear();
    m_component.clear();
}

void SessionSettings::doReadSettings(QSettings& settings)
{
    m_model = settings.value(modelKey).toString();
    m_component = settings.value(componentKey).toString();
}

void SessionSettings::doWriteSettings(QSettings& settings)
{
    settings.setValue(modelKey, m_model);
    settings.setValue(componentKey, m_component);
}
