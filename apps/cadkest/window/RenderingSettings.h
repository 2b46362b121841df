// SPDX-License-Identifier: MIT
#pragma once

#include "SceneView.h"

#include <common_settings.h>

/// How the user wants models drawn: the group "rendering" of the application's settings file.
class RenderingSettings : public common_settings
{
public:
    explicit RenderingSettings(const QString& fileName);

    void restoreDefaults() override;

    Rendering rendering = Rendering::Software;
    int faceDisplacement = 2;
    bool wasAsked = false; ///< whether the user has answered about hardware rendering

    /// Hardware rendering has been switched on, and nothing has been drawn by it yet: where this
    /// is found at a start, the program ended in between.
    bool isUnproven = false;

protected:
    void doReadSettings(QSettings& settings) override;
    void doWriteSettings(QSettings& settings) override;
};
