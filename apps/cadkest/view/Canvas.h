// SPDX-License-Identifier: MIT
#pragma once

#include "HardwareDrawing.h"
#include "SoftwareRenderer.h"

#include <QOpenGLWidget>

class SceneView;

/// The area of a scene view that is drawn by software. Mouse and keyboard are the view's.
class SoftwareCanvas : public QWidget
{
    Q_OBJECT

public:
    explicit SoftwareCanvas(SceneView* view);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    SceneView* m_view;
    SoftwareRenderer m_renderer;
};

/// The area of a scene view that is drawn by OpenGL.
class HardwareCanvas : public QOpenGLWidget
{
    Q_OBJECT

public:
    explicit HardwareCanvas(SceneView* view);
    ~HardwareCanvas() override;

Q_SIGNALS:
    void failed(const QString& reason);

protected:
    void initializeGL() override;
    void paintGL() override;

private:
    void releaseDrawing();

    SceneView* m_view;
    std::unique_ptr<HardwareDrawing> m_drawing;
};
