// SPDX-License-Identifier: MIT
#pragma once

#include "Overlay.h"
#include "Renderer.h"
#include "Scene.h"
#include "SpaceMotion.h"

#include <QPoint>
#include <QTimer>
#include <QWidget>

#include <memory>

class SpaceMouse;

enum class Rendering { Software, Hardware };

/// Shows a scene, which the user turns, moves and magnifies by mouse, keyboard and 3D mouse.
class SceneView : public QWidget
{
    Q_OBJECT

public:
    /// Draws by software and shows nothing yet.
    explicit SceneView(QWidget* parent = nullptr);
    ~SceneView() override;

    /// Shows a scene. The first one is fitted into the view; afterwards the user's view is kept.
    void setScene(const Scene& scene, const QString& title);

    /// Fits the scene into the view again, from a direction.
    void lookFrom(Direction direction);

    /// Fits the scene into the view again.
    void fit();

    /// Changes the renderer. Where there is no hardware rendering, software rendering stays.
    /// Returns why; empty when the renderer was changed.
    QString setRendering(Rendering rendering);
    [[nodiscard]] Rendering rendering() const { return m_rendering; }

    /// From 0 to 32.
    void setFaceDisplacement(int displacement);

    void setThickness(Thickness thickness);

    /// How fast the scene follows a 3D mouse: that of common_3DMouseOptions.
    void setSpaceMouseSensitivity(double sensitivity) { m_sensitivity = sensitivity; }
    [[nodiscard]] bool hasSpaceMouse() const { return m_spaceMouse != nullptr; }

    [[nodiscard]] const Camera& camera() const { return m_frame.camera; }

    /// The view as a picture of its own size in pixels, drawn by software.
    [[nodiscard]] QImage picture() const;

    /// What is to be drawn into a canvas of that size in pixels.
    [[nodiscard]] Frame frame(const QSize& pixels) const;
    [[nodiscard]] const Overlay& overlay() const { return m_overlay; }

    [[nodiscard]] QSize sizeHint() const override { return {800, 600}; }

Q_SIGNALS:
    void cameraChanged();

    /// OpenGL has brought a picture to the screen.
    void hardwareDrawn();

    /// OpenGL gave up; software rendering has taken over.
    void hardwareFailed(const QString& reason);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void makeCanvas();
    void giveUpHardware(const QString& reason);
    void rebuildMesh();
    void moved();
    void redraw();
    void followSpaceMouse(const SpaceMotion& motion);

    Scene m_scene;
    Frame m_frame;
    Overlay m_overlay;
    Thickness m_thickness = Thickness::Readable;
    Rendering m_rendering = Rendering::Software;
    QWidget* m_canvas = nullptr;
    std::unique_ptr<SpaceMouse> m_spaceMouse;
    double m_sensitivity = 50;
    bool m_isFitted = true; ///< nothing but fitting has been done to the camera
    QPoint m_pointer;
    QTimer m_rest; ///< runs out when the scene has come to rest
};

/// Draws a frame by software, with everything over it.
QImage pictureOf(const Frame& frame, const Overlay& overlay);
