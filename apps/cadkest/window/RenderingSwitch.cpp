// SPDX-License-Identifier: MIT
#include "RenderingSwitch.h"

#include "MainWindow.h"
#include "RenderingSettings.h"

#include <QStatusBar>

RenderingSwitch::RenderingSwitch(MainWindow* window, RenderingSettings* settings,
                                 const QString& program)
    : m_window(window), m_settings(settings), m_probe(program)
{
    connect(&m_probe, &HardwareProbe::answered, this, &RenderingSwitch::onAnswered);
    connect(m_window->view(), &SceneView::hardwareDrawn, this, [this] { setUnproven(false); });
    connect(m_window->view(), &SceneView::hardwareFailed, this, [this] { setUnproven(false); });
}

RenderingSwitch::~RenderingSwitch()
{
    if (m_window->view()->rendering() == Rendering::Hardware) {
        setUnproven(false);
    }
}

void RenderingSwitch::start()
{
    if (m_settings->rendering == Rendering::Hardware && m_settings->isUnproven) {
        m_window->refuseHardware(tr(
            "the program ended when it was last switched on (Settings, Rendering tries it again)"));
        return;
    }
    change(m_settings->rendering);
}

void RenderingSwitch::change(Rendering rendering)
{
    if (rendering == Rendering::Software) {
        m_probe.cancel();
        m_window->statusBar()->clearMessage();
        m_window->setRendering(rendering);
        Q_EMIT changed(true);
    } else if (m_window->view()->rendering() == rendering) {
        Q_EMIT changed(true);
    } else {
        m_window->statusBar()->showMessage(tr("Trying hardware rendering..."));
        m_probe.start();
    }
}

void RenderingSwitch::onAnswered(const QString& error)
{
    m_window->statusBar()->clearMessage();
    if (!error.isEmpty()) {
        m_window->refuseHardware(error);
        Q_EMIT changed(false);
        return;
    }
    setUnproven(true);
    const bool isHardware = m_window->setRendering(Rendering::Hardware);
    if (!isHardware) {
        setUnproven(false);
    }
    Q_EMIT changed(isHardware);
}

void RenderingSwitch::setUnproven(bool isUnproven)
{
    if (m_settings->isUnproven != isUnproven) {
        m_settings->isUnproven = isUnproven;
        m_settings->writeSettings();
    }
}
