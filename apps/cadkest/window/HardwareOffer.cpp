#include "HardwareOffer.h"

#include "MainWindow.h"
#include "RenderingSettings.h"

#include <common_InitialRenderingSettingsDialog.h>

namespace cad {

namespace {

constexpr int Kept = 0; // the result of the box when its first button was pressed

} // namespace

HardwareOffer::HardwareOffer(MainWindow* window, RenderingSettings* settings)
    : m_window(window), m_settings(settings)
{}

HardwareOffer::~HardwareOffer() = default;

void HardwareOffer::make()
{
    if (m_settings->wasAsked || m_settings->rendering == Rendering::Hardware) {
        return;
    }
    m_dialog = std::make_unique<common_InitialRenderingSettingsDialog>(
        m_window, QStringLiteral("Settings > Rendering"), true);
    if (!m_dialog->Test()) {
        finish(false);
        return;
    }
    // Written first: should the driver end the program, the next start does not try again.
    m_settings->wasAsked = true;
    m_settings->writeSettings();
    if (!m_window->setRendering(Rendering::Hardware)) {
        finish(false);
        return;
    }
    connect(m_dialog.get(), &QDialog::finished, this,
            [this](int result) { finish(result == Kept); });
    m_dialog->Keep();
}

void HardwareOffer::finish(bool isKept)
{
    m_settings->wasAsked = true;
    m_settings->rendering = isKept ? Rendering::Hardware : Rendering::Software;
    m_settings->writeSettings();
    if (!isKept && m_window->view()->rendering() == Rendering::Hardware) {
        m_window->setRendering(Rendering::Software);
    }
    Q_EMIT answered();
}

} // namespace cad
