// SPDX-License-Identifier: MIT
#pragma once

#include "HardwareProbe.h"
#include "SceneView.h"

class MainWindow;
class RenderingSettings;

/// Brings a window to the renderer that the user wants. To hardware it changes once a trial
/// elsewhere went well; until then, and where it did not, the window renders by software.
///
/// Should the driver end the program all the same, the settings tell the next start.
class RenderingSwitch : public QObject
{
    Q_OBJECT

public:
    /// Window and settings are not the switch's, and must live longer. The program is that of
    /// HardwareProbe.
    RenderingSwitch(MainWindow* window, RenderingSettings* settings, const QString& program);

    /// A start that ended without as much as one picture has proven nothing.
    ~RenderingSwitch() override;

    /// Changes to what the settings ask for, unless the program ended at that the last time.
    void start();

    /// Changes the renderer, at once or some time later.
    void change(Rendering rendering);

    [[nodiscard]] HardwareProbe& probe() { return m_probe; }

Q_SIGNALS:
    /// The renderer is the requested one, or it has turned out that it cannot be.
    void changed(bool isAsAsked);

private:
    void onAnswered(const QString& error);
    void setUnproven(bool isUnproven);

    MainWindow* m_window;
    RenderingSettings* m_settings;
    HardwareProbe m_probe;
};
