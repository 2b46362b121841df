// SPDX-License-Identifier: MIT
#include "SceneView.h"

#include "Canvas.h"
#include "HardwareRenderer.h"
#include "SoftwareRenderer.h"
#include "SpaceMouse.h"
#include "ViewControls.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

namespace {

constexpr int restMilliseconds = 150;
constexpr int greatestDisplacement = 32;

} // namespace

SceneView::SceneView(QWidget* parent) : QWidget(parent), m_spaceMouse(SpaceMouse::create())
{
    setObjectName(QStringLiteral("sceneView"));
    setFocusPolicy(Qt::StrongFocus);
    setMinimumSize(160, 120);
    m_frame.colours = SceneColours::of(palette());
    m_frame.camera.lookFrom(Direction::Isometric);
    rebuildMesh();
    makeCanvas();
    m_rest.setSingleShot(true);
    m_rest.setInterval(restMilliseconds);
    connect(&m_rest, &QTimer::timeout, this, [this] {
        m_frame.isSmooth = true;
        m_canvas->update();
    });
    if (m_spaceMouse) {
        connect(m_spaceMouse.get(), &SpaceMouse::moved, this, &SceneView::followSpaceMouse);
        connect(m_spaceMouse.get(), &SpaceMouse::fitRequested, this, &SceneView::fit);
    }
}

SceneView::~SceneView() = default;

void SceneView::setScene(const Scene& scene, const QString& title)
{
    m_scene = scene;
    m_overlay = overlayOf(scene, title);
    rebuildMesh();
    if (m_isFitted) {
        fit();
    }
    redraw();
}

void SceneView::lookFrom(Direction direction)
{
    m_frame.camera.lookFrom(direction);
    fit();
}

void SceneView::fit()
{
    m_frame.camera.fit(*m_frame.mesh, size());
    m_isFitted = true;
    redraw();
    Q_EMIT cameraChanged();
}

QString SceneView::setRendering(Rendering rendering)
{
    if (rendering == m_rendering) {
        return QString();
    }
    if (rendering == Rendering::Hardware) {
        // Tried where it can fail without harm.
        QString error = HardwareRenderer().error();
        if (!error.isEmpty()) {
            return error;
        }
    }
    m_rendering = rendering;
    makeCanvas();
    return QString();
}

void SceneView::setFaceDisplacement(int displacement)
{
    m_frame.faceDisplacement = qBound(0, displacement, greatestDisplacement);
    redraw();
}

void SceneView::setThickness(Thickness thickness)
{
    m_thickness = thickness;
    rebuildMesh();
    redraw();
}

QImage SceneView::picture() const
{
    Frame drawn = frame(size() * devicePixelRatioF());
    drawn.isSmooth = true;
    return pictureOf(drawn, m_overlay);
}

Frame SceneView::frame(const QSize& pixels) const
{
    Frame result = m_frame;
    result.size = pixels;
    return result;
}

void SceneView::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    m_canvas->setGeometry(rect());
    if (m_isFitted) {
        fit();
    }
    redraw();
}

void SceneView::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) {
        m_frame.colours = SceneColours::of(palette());
        redraw();
    }
}

void SceneView::mousePressEvent(QMouseEvent* event)
{
    m_pointer = event->pos();
}

void SceneView::mouseMoveEvent(QMouseEvent* event)
{
    ViewControls::drag(m_frame.camera, event->pos() - m_pointer, event->buttons(),
                       event->modifiers(), size());
    m_pointer = event->pos();
    moved();
}

void SceneView::wheelEvent(QWheelEvent* event)
{
    ViewControls::wheel(m_frame.camera, event->angleDelta().y(), event->position(), size());
    moved();
    event->accept();
}

void SceneView::keyPressEvent(QKeyEvent* event)
{
    if (!ViewControls::key(m_frame.camera, event->key(), event->modifiers(), *m_frame.mesh,
                           size())) {
        QWidget::keyPressEvent(event);
        return;
    }
    moved();
    m_isFitted = event->key() == Qt::Key_Home;
}

void SceneView::makeCanvas()
{
    delete m_canvas;
    if (m_rendering == Rendering::Hardware) {
        auto* canvas = new HardwareCanvas(this);
        // The canvas is drawing when it finds out, so it is replaced a little later.
        connect(canvas, &HardwareCanvas::failed, this, &SceneView::giveUpHardware,
                Qt::QueuedConnection);
        connect(canvas, &HardwareCanvas::frameSwapped, this, &SceneView::hardwareDrawn);
        m_canvas = canvas;
    } else {
        m_canvas = new SoftwareCanvas(this);
    }
    m_canvas->setGeometry(rect());
    m_canvas->show();
}

void SceneView::giveUpHardware(const QString& reason)
{
    if (m_rendering == Rendering::Hardware) {
        m_rendering = Rendering::Software;
        makeCanvas();
        Q_EMIT hardwareFailed(reason);
    }
}

void SceneView::rebuildMesh()
{
    m_frame.mesh = std::make_shared<SceneMesh>(meshOf(m_scene, m_thickness));
}

void SceneView::moved()
{
    m_isFitted = false;
    redraw();
    Q_EMIT cameraChanged();
}

void SceneView::redraw()
{
    m_frame.isSmooth = false;
    m_rest.start();
    m_canvas->update();
}

void SceneView::followSpaceMouse(const SpaceMotion& motion)
{
    apply(motion, m_sensitivity, m_frame.camera, size());
    moved();
}

QImage pictureOf(const Frame& frame, const Overlay& overlay)
{
    SoftwareRenderer renderer;
    QImage image = renderer.render(frame);
    if (!image.isNull()) {
        QPainter painter(&image);
        overlay.paint(painter, frame, frame.size);
    }
    return image;
}
