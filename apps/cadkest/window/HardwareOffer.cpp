// SPDX-License-Identifier: MIT
#include "HardwareOffer.h"

#include "MainWindow.h"
#include "RenderingSettings.h"
#include "RenderingSwitch.h"

#include <common_InitialRenderingSettingsDialog.h>

namespace {

// The results of the box, by its buttons.
constexpr int kept = 0;
constexpr int refused = 1;

} // namespace

HardwareOffer::HardwareOffer(MainWindow* window, RenderingSettings* settings,
                             RenderingSwitch* renderingSwitch)
    : m_window(window), m_settings(settings), m_switch(renderingSwitch)
{}

HardwareOffer::~HardwareOffer() = default;

void HardwareOffer::make()
{
    if (m_settings->wasAsked || m_settings->rendering == Rendering::Hardware) {
        return;
    }
    m_dialog = std::make_unique<common_InitialRenderingSettingsDialog>(
        m_window, tr("Settings > Rendering"), true);
    if (!m_dialog->Test()) {
        finish(false);
        return;
    }
    // Written first: should the driver end the program, the next start does not try again.
    m_settings->wasAsked = true;
    m_settings->writeSettings();
    connect(m_switch, &RenderingSwitch::changed, this, &HardwareOffer::confirm);
    m_switch->change(Rendering::Hardware);
}

void HardwareOffer::confirm()
{
    // From now on the renderer may change for other reasons.
    disconnect(m_switch, &RenderingSwitch::changed, this, &HardwareOffer::confirm);
    if (m_window->view()->rendering() != Rendering::Hardware) {
        finish(false);
        return;
    }
    connect(m_dialog.get(), &QDialog::finished, this,
            [this](int result) { finish(result == kept); });
    connect(m_window->view(), &SceneView::hardwareFailed, m_dialog.get(),
            [this] { m_dialog->done(refused); });
    m_dialog->Keep();
}

void HardwareOffer::finish(bool isKept)
{
    m_settings->wasAsked = true;
    m_settings->rendering = isKept ? Rendering::Hardware : Rendering::Software;
    m_settings->writeSettings();
    if (!isKept && m_window->view()->rendering() == Rendering::Hardware) {
        m_switch->change(Rendering::Software);
    }
    Q_EMIT answered();
}
