// SPDX-License-Identifier: MIT
#include "SpaceMotion.h"

#include "Camera.h"

#include <QPointF>
#include <QSize>
#include <QtMath>

#include <cmath>

namespace {

constexpr double fullDeflection = 350;
constexpr double usualSensitivity = 50;
constexpr double greatestSensitivity = 1000;
constexpr double turnsPerSecond = 0.3;
constexpr double viewsPerSecond = 0.7; // of the picture's height
constexpr double doublingsPerSecond = 1.2;
constexpr int longestStep = 100; // milliseconds: the first message after a rest counts the rest

} // namespace

void apply(const SpaceMotion& motion, double sensitivity, Camera& camera, const QSize& size)
{
    if (!std::isfinite(sensitivity)) {
        return;
    }
    const double seconds = qBound(0, motion.milliseconds, longestStep) / 1000.0;
    const double step =
        seconds * qBound(0.0, sensitivity, greatestSensitivity) / usualSensitivity / fullDeflection;
    const double pixels = step * viewsPerSecond * size.height();
    camera.pan({motion.move.x() * pixels, -motion.move.y() * pixels}, size);
    camera.zoom(std::exp2(motion.move.z() * step * doublingsPerSecond));
    camera.rotate(motion.turn * float(step * turnsPerSecond * 2 * M_PI));
}
