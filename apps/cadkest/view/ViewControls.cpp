// SPDX-License-Identifier: MIT
#include "ViewControls.h"

#include "Camera.h"

#include <QPointF>
#include <QSize>
#include <QtMath>

#include <algorithm>
#include <cmath>
#include <optional>

namespace ViewControls {

namespace {

constexpr double degreesPerPixel = 0.5;
constexpr double keyDegrees = 10;
constexpr double keyMove = 0.1; // of the view's height
constexpr double keyZoom = 1.25;
constexpr double wheelStep = 120;

struct DirectionKey
{
    int key;
    Direction direction;
};

constexpr DirectionKey directionKeys[] = {
    {Qt::Key_0, Direction::Isometric},
    {Qt::Key_1, Direction::Y},
    {Qt::Key_3, Direction::X},
    {Qt::Key_7, Direction::Z},
};

// Which way an arrow points, to the right and down.
std::optional<QPointF> arrow(int key)
{
    switch (key) {
    case Qt::Key_Left:
        return QPointF(-1, 0);
    case Qt::Key_Right:
        return QPointF(1, 0);
    case Qt::Key_Up:
        return QPointF(0, -1);
    case Qt::Key_Down:
        return QPointF(0, 1);
    default:
        return std::nullopt;
    }
}

// How many times larger a key makes the scene.
std::optional<double> zoomFactor(int key)
{
    switch (key) {
    case Qt::Key_Plus:
    case Qt::Key_Equal: // the same key without Shift, on many keyboards
        return keyZoom;
    case Qt::Key_Minus:
        return 1 / keyZoom;
    default:
        return std::nullopt;
    }
}

bool lookFrom(Camera& camera, int key, const SceneMesh& mesh, const QSize& size)
{
    const auto* found = std::find_if(std::begin(directionKeys), std::end(directionKeys),
                                     [key](const DirectionKey& each) { return each.key == key; });
    if (found == std::end(directionKeys)) {
        return false;
    }
    camera.lookFrom(found->direction);
    camera.fit(mesh, size);
    return true;
}

} // namespace

void drag(Camera& camera, const QPointF& pixels, Qt::MouseButtons buttons,
          Qt::KeyboardModifiers modifiers, const QSize& size)
{
    const bool isMove = modifiers.testFlag(Qt::ShiftModifier) ||
                        (buttons & (Qt::MiddleButton | Qt::RightButton)) != 0;
    if (isMove) {
        camera.pan(pixels, size);
    } else {
        camera.turn(pixels * qDegreesToRadians(degreesPerPixel));
    }
}

void wheel(Camera& camera, int angle, const QPointF& place, const QSize& size)
{
    camera.zoom(std::pow(keyZoom, angle / wheelStep), place, size);
}

bool key(Camera& camera, int key, Qt::KeyboardModifiers modifiers, const SceneMesh& mesh,
         const QSize& size)
{
    if (modifiers & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) {
        return false; // somebody's shortcut
    }
    if (const auto direction = arrow(key)) {
        if (modifiers.testFlag(Qt::ShiftModifier)) {
            camera.pan(*direction * keyMove * size.height(), size);
        } else {
            camera.turn(*direction * qDegreesToRadians(keyDegrees));
        }
        return true;
    }
    if (const auto factor = zoomFactor(key)) {
        camera.zoom(*factor);
        return true;
    }
    if (key == Qt::Key_Home) {
        camera.fit(mesh, size);
        return true;
    }
    return lookFrom(camera, key, mesh, size);
}

} // namespace ViewControls
