// SPDX-License-Identifier: MIT
#include "RenderingSettings.h"

namespace {

constexpr int greatestDisplacement = 32;

const QString hardwareKey = QStringLiteral("HardwareRendering");
const QString displacementKey = QStringLiteral("FaceDisplacement");
const QString askedKey = QStringLiteral("HardwareRenderingAsked");
const QString unprovenKey = QStringLiteral("HardwareRenderingUnproven");

} // namespace

RenderingSettings::RenderingSettings(const QString& fileName)
    : common_settings(fileName, QStringLiteral("rendering"), QSettings::IniFormat)
{}

void RenderingSettings::restoreDefaults()
{
    rendering = Rendering::Software;
    faceDisplacement = 2;
    wasAsked = false;
    isUnproven = false;
}

void RenderingSettings::doReadSettings(QSettings& settings)
{
    restoreDefaults();
    rendering =
        settings.value(hardwareKey, false).toBool() ? Rendering::Hardware : Rendering::Software;
    faceDisplacement =
        qBound(0, settings.value(displacementKey, faceDisplacement).toInt(), greatestDisplacement);
    wasAsked = settings.value(askedKey, false).toBool();
    isUnproven = settings.value(unprovenKey, false).toBool();
}

void RenderingSettings::doWriteSettings(QSettings& settings)
{
    settings.setValue(hardwareKey, rendering == Rendering::Hardware);
    settings.setValue(displacementKey, faceDisplacement);
    settings.setValue(askedKey, wasAsked);
    settings.setValue(unprovenKey, isUnproven);
}
