// SPDX-License-Identifier: MIT
#include "Canvas.h"

#include "SceneView.h"

#include <QOpenGLContext>
#include <QPainter>

namespace {

constexpr int smoothSamples = 4;

QSize pixelsOf(const QWidget& widget)
{
    return widget.size() * widget.devicePixelRatioF();
}

} // namespace

SoftwareCanvas::SoftwareCanvas(SceneView* view) : QWidget(view), m_view(view)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void SoftwareCanvas::paintEvent(QPaintEvent* /*event*/)
{
    const Frame frame = m_view->frame(pixelsOf(*this));
    QImage image = m_renderer.render(frame);
    image.setDevicePixelRatio(devicePixelRatioF());
    QPainter painter(this);
    painter.drawImage(0, 0, image);
    m_view->overlay().paint(painter, frame, size());
}

HardwareCanvas::HardwareCanvas(SceneView* view) : QOpenGLWidget(view), m_view(view)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    QSurfaceFormat format = HardwareDrawing::surfaceFormat();
    format.setSamples(smoothSamples);
    setFormat(format);
}

HardwareCanvas::~HardwareCanvas()
{
    if (context() != nullptr) {
        // The base class destroys it, when there is nobody left here to be told.
        disconnect(context(), nullptr, this, nullptr);
    }
    releaseDrawing();
}

void HardwareCanvas::initializeGL()
{
    // The context goes when the canvas moves to another window.
    connect(context(), &QOpenGLContext::aboutToBeDestroyed, this, &HardwareCanvas::releaseDrawing);
    m_drawing = std::make_unique<HardwareDrawing>();
    if (!m_drawing->error().isEmpty()) {
        Q_EMIT failed(m_drawing->error());
    }
}

void HardwareCanvas::paintGL()
{
    const Frame frame = m_view->frame(pixelsOf(*this));
    QPainter painter(this);
    painter.beginNativePainting();
    if (m_drawing->error().isEmpty()) {
        m_drawing->draw(frame);
    }
    painter.endNativePainting();
    m_view->overlay().paint(painter, frame, size());
}

void HardwareCanvas::releaseDrawing()
{
    if (m_drawing) {
        makeCurrent();
        m_drawing.reset();
        doneCurrent();
    }
}
