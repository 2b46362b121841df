// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

#include <memory>

class common_InitialRenderingSettingsDialog;

class MainWindow;
class RenderingSettings;
class RenderingSwitch;

/// Offers hardware rendering to a user who was never asked: first as a test, then to be kept. While
/// it has not been kept, software rendering is what the settings say, so that a driver that ends
/// the program is not met again on the next start.
class HardwareOffer : public QObject
{
    Q_OBJECT

public:
    /// None of them is the offer's; all must live longer.
    HardwareOffer(MainWindow* window, RenderingSettings* settings,
                  RenderingSwitch* renderingSwitch);
    ~HardwareOffer() override;

    /// Asks, if there is anything to ask.
    void make();

Q_SIGNALS:
    /// The user has answered, and the settings are written.
    void answered();

private:
    void confirm();
    void finish(bool isKept);

    MainWindow* m_window;
    RenderingSettings* m_settings;
    RenderingSwitch* m_switch;
    std::unique_ptr<common_InitialRenderingSettingsDialog> m_dialog;
};
