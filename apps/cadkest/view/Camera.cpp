// SPDX-License-Identifier: MIT
#include "Camera.h"

#include "SceneMesh.h"

#include <QtMath>

#include <algorithm>
#include <cmath>

namespace {

constexpr float poleTolerance = 1e-3F;
constexpr double leastHeight = 1e-4; // below it the numbers of the mesh are too coarse
constexpr double greatestHeight = 100;
constexpr float fitMargin = 1.12F;
// What lies on the border of two pixels would go either way: so little aside, in pixels, that is
// rare.
constexpr float offCentre = 0.13F;
constexpr float depthMargin = 1.1F; // so that nothing pushed back leaves the depth range

// Not the same angle to all axes: what is upright would hide what lies along the diagonal.
constexpr double cornerElevation = 0.45;
constexpr double cornerAzimuth = 0.55;

const QVector3D rightAxis(1, 0, 0);
const QVector3D vertical(0, 0, 1);

QQuaternion about(const QVector3D& axis, double radians)
{
    return QQuaternion::fromAxisAndAngle(axis, float(qRadiansToDegrees(radians)));
}

// How far the scene is upright: the vertical axis' part that points up in the picture.
float uprightness(const QQuaternion& orientation)
{
    return orientation.rotatedVector(vertical).y();
}

} // namespace

void Camera::lookFrom(Direction direction)
{
    const QQuaternion front = about(rightAxis, -M_PI / 2); // x right, z up
    switch (direction) {
    case Direction::Isometric:
        m_orientation = about(rightAxis, cornerElevation) * front * about(vertical, -cornerAzimuth);
        break;
    case Direction::X:
        m_orientation = front * about(vertical, -M_PI / 2);
        break;
    case Direction::Y:
        m_orientation = front;
        break;
    case Direction::Z:
        m_orientation = QQuaternion();
        break;
    }
}

void Camera::fit(const SceneMesh& mesh, const QSize& size)
{
    QVector3D low;
    QVector3D high;
    bool isFirst = true;
    for (const QVector3D& point : mesh.points) {
        const QVector3D seen = m_orientation.rotatedVector(point);
        for (int axis = 0; axis < 3; ++axis) {
            low[axis] = isFirst ? seen[axis] : std::min(low[axis], seen[axis]);
            high[axis] = isFirst ? seen[axis] : std::max(high[axis], seen[axis]);
        }
        isFirst = false;
    }
    m_middle = m_orientation.conjugated().rotatedVector((low + high) / 2);
    const QVector3D extent = (high - low) * fitMargin;
    const double ratio = double(std::max(size.height(), 1)) / std::max(size.width(), 1);
    m_height =
        qBound(leastHeight, std::max(double(extent.y()), extent.x() * ratio), greatestHeight);
}

void Camera::turn(const QPointF& angles)
{
    const QQuaternion before = m_orientation;
    const QQuaternion around = m_orientation * about(vertical, angles.x());
    m_orientation = (about(rightAxis, angles.y()) * around).normalized();
    if (uprightness(m_orientation) < 0 && uprightness(before) > -poleTolerance) {
        // As far as the pole: the vertical axis then points along the line of sight.
        const QVector3D axis = around.rotatedVector(vertical);
        const double rest =
            angles.y() > 0 ? std::atan2(axis.y(), axis.z()) : -std::atan2(axis.y(), -axis.z());
        m_orientation = (about(rightAxis, rest) * around).normalized();
    }
}

void Camera::rotate(const QVector3D& angles)
{
    const float angle = angles.length();
    if (angle > 0) {
        m_orientation = (about(angles / angle, angle) * m_orientation).normalized();
    }
}

void Camera::pan(const QPointF& pixels, const QSize& size)
{
    const double unit = 1 / pixelsPerUnit(size);
    const QVector3D moved(float(pixels.x() * unit), float(-pixels.y() * unit), 0);
    m_middle -= m_orientation.conjugated().rotatedVector(moved);
    // Nobody finds a scene again that is many times its size away.
    const float distance = m_middle.length();
    if (distance > float(greatestHeight)) {
        m_middle *= float(greatestHeight) / distance;
    }
}

void Camera::zoom(double factor, const QPointF& place, const QSize& size)
{
    const QPointF fromMiddle = place - QPointF(size.width(), size.height()) / 2;
    pan(-fromMiddle, size);
    zoom(factor);
    pan(fromMiddle, size);
}

void Camera::zoom(double factor)
{
    m_height = qBound(leastHeight, m_height / factor, greatestHeight);
}

QMatrix4x4 Camera::projection(const QSize& size, float meshRadius) const
{
    const auto scale = float(2 / m_height);
    const float depth = meshRadius * depthMargin;
    QMatrix4x4 result;
    result.translate(offCentre * 2 / float(std::max(size.width(), 1)),
                     offCentre / 2 * 2 / float(std::max(size.height(), 1)));
    result.scale(scale * float(size.height()) / float(std::max(size.width(), 1)), scale,
                 -1 / depth);
    // Depths are measured from the mesh's origin, wherever the camera has been panned to.
    const QVector3D seen = m_orientation.rotatedVector(m_middle);
    result.translate(-seen.x(), -seen.y(), 0);
    result.rotate(m_orientation);
    return result;
}
