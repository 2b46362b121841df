// SPDX-License-Identifier: MIT
#include "HardwareRenderer.h"

#include "HardwareDrawing.h"

#include <QOffscreenSurface>
#include <QOpenGLContext>
#include <QOpenGLFramebufferObject>
#include <QOpenGLFunctions>

namespace {

constexpr int smoothSamples = 4;

} // namespace

HardwareRenderer::HardwareRenderer()
    : m_surface(std::make_unique<QOffscreenSurface>())
    , m_context(std::make_unique<QOpenGLContext>())
{
    const QSurfaceFormat format = HardwareDrawing::surfaceFormat();
    m_context->setFormat(format);
    if (!m_context->create()) {
        m_error = tr("this display has no OpenGL");
        return;
    }
    m_surface->setFormat(format);
    m_surface->create();
    if (!makeCurrent()) {
        m_error = tr("OpenGL does not start");
    } else if (!QOpenGLFramebufferObject::hasOpenGLFramebufferObjects()) {
        m_error = tr("the OpenGL of this display is too old");
    } else {
        m_drawing = std::make_unique<HardwareDrawing>();
        m_error = m_drawing->error();
    }
}

HardwareRenderer::~HardwareRenderer()
{
    if (m_drawing && makeCurrent()) {
        m_drawing.reset();
        m_context->doneCurrent();
    }
}

QString HardwareRenderer::device() const
{
    if (!m_error.isEmpty()) {
        return QString();
    }
    m_context->makeCurrent(m_surface.get());
    const auto* name = m_context->functions()->glGetString(GL_RENDERER);
    return QString::fromLatin1(reinterpret_cast<const char*>(name));
}

QImage HardwareRenderer::render(const Frame& frame)
{
    if (!m_error.isEmpty() || !makeCurrent()) {
        return QImage();
    }
    QOpenGLFramebufferObjectFormat format;
    format.setAttachment(QOpenGLFramebufferObject::CombinedDepthStencil);
    format.setSamples(frame.isSmooth ? smoothSamples : 0);
    QOpenGLFramebufferObject buffer(frame.size, format);
    if (!buffer.isValid() || !buffer.bind()) {
        return QImage();
    }
    m_drawing->draw(frame);
    return buffer.toImage().convertToFormat(QImage::Format_RGB32);
}

bool HardwareRenderer::makeCurrent()
{
    return m_context->makeCurrent(m_surface.get());
}
