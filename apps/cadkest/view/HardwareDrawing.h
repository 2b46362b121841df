// SPDX-License-Identifier: MIT
#pragma once

#include "Renderer.h"

#include <QCoreApplication>
#include <QOpenGLBuffer>
#include <QOpenGLShaderProgram>
#include <QString>
#include <QSurfaceFormat>

/// Draws frames into whatever the current OpenGL context draws into. Made, used and destroyed with
/// one context current.
class HardwareDrawing
{
    Q_DECLARE_TR_FUNCTIONS(HardwareDrawing)

public:
    HardwareDrawing();

    /// Why it cannot draw; empty when it can.
    [[nodiscard]] QString error() const { return m_error; }

    void draw(const Frame& frame);

    /// What contexts and windows should ask for.
    static QSurfaceFormat surfaceFormat();

private:
    void upload(const SceneMesh& mesh);
    void setUniforms(const Frame& frame);
    void drawFaces(const Frame& frame) const;
    void drawLines(const Frame& frame) const;

    QOpenGLShaderProgram m_program;
    QOpenGLBuffer m_buffer;
    std::shared_ptr<const SceneMesh> m_mesh; ///< the one in the buffer
    /// Where the mesh's lists begin in the buffer, in vertices.
    int m_firstTube = 0;
    int m_firstSolid = 0;
    int m_firstCore = 0;
    int m_firstRib = 0;
    int m_firstRing = 0;
    int m_firstOutline = 0;
    QString m_error;
};
