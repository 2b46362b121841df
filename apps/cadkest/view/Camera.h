// SPDX-License-Identifier: MIT
#pragma once

#include <QMatrix4x4>
#include <QPointF>
#include <QQuaternion>
#include <QSize>
#include <QVector3D>

struct SceneMesh;

/// The directions to look from.
enum class Direction {
    Isometric, ///< from a corner: from above, a little to the right of -y
    X,         ///< from +x, with y to the right and z up
    Y,         ///< from -y, with x to the right and z up
    Z,         ///< from +z, with x to the right and y up
};

/// How a mesh is looked at: without perspective, so that lengths can be compared anywhere and one
/// scale bar holds for the whole picture.
class Camera
{
public:
    /// Looks from a direction and keeps middle and scale.
    void lookFrom(Direction direction);

    /// Shows the whole mesh in a picture of that size and keeps the direction.
    void fit(const SceneMesh& mesh, const QSize& size);

    /// Turns the scene around the vertical axis (x) and around the horizontal axis of the picture
    /// (y), in radians: as if it was dragged to the right and down. It stays upright.
    void turn(const QPointF& angles);

    /// Turns the scene freely around the picture's axes: right, up and towards the viewer, in
    /// radians.
    void rotate(const QVector3D& angles);

    /// Moves the scene by so many pixels to the right and down.
    void pan(const QPointF& pixels, const QSize& size);

    /// Magnifies, where 2 is twice as large. What is at that place of the picture stays there.
    void zoom(double factor, const QPointF& place, const QSize& size);

    /// Magnifies around the middle of the picture.
    void zoom(double factor);

    [[nodiscard]] double pixelsPerUnit(const QSize& size) const { return size.height() / m_height; }

    /// From the mesh to OpenGL's normalised device coordinates.
    [[nodiscard]] QMatrix4x4 projection(const QSize& size, float meshRadius) const;

    /// Turns directions of the mesh into right, up and towards the viewer.
    [[nodiscard]] QQuaternion orientation() const { return m_orientation; }

    /// What is in the middle of the picture.
    [[nodiscard]] QVector3D middle() const { return m_middle; }

    /// How many units the picture is high.
    [[nodiscard]] double height() const { return m_height; }

private:
    QQuaternion m_orientation = QQuaternion();
    QVector3D m_middle;
    double m_height = 2.5;
};
