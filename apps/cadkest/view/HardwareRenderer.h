// SPDX-License-Identifier: MIT
#pragma once

#include "Renderer.h"

#include <QCoreApplication>
#include <QString>

class QOffscreenSurface;
class QOpenGLContext;
class QOpenGLFramebufferObject;

class HardwareDrawing;

/// Draws by OpenGL into a picture, without a window.
class HardwareRenderer : public Renderer
{
    Q_DECLARE_TR_FUNCTIONS(HardwareRenderer)

public:
    HardwareRenderer();
    ~HardwareRenderer() override;

    /// Why nothing can be drawn by OpenGL here; empty when it can.
    [[nodiscard]] QString error() const { return m_error; }

    /// What draws: the name of the graphics card, or of the software in its place.
    [[nodiscard]] QString device() const;

    QImage render(const Frame& frame) override;

private:
    bool makeCurrent();

    std::unique_ptr<QOffscreenSurface> m_surface;
    std::unique_ptr<QOpenGLContext> m_context;
    std::unique_ptr<HardwareDrawing> m_drawing;
    QString m_error;
};
