#include "SpaceMotion.h"

#include "Camera.h"

#include <QPointF>
#include <QSize>
#include <QtMath>

#include <cmath>

namespace cad {

namespace {

constexpr double FullDeflection = 350;
constexpr double UsualSensitivity = 50;
constexpr double GreatestSensitivity = 1000;
constexpr double TurnsPerSecond = 0.3;
constexpr double ViewsPerSecond = 0.7; // of the picture's height
constexpr double DoublingsPerSecond = 1.2;
constexpr int LongestStep = 100; // milliseconds: the first message after a rest counts the rest

} // namespace

void apply(const SpaceMotion& motion, double sensitivity, Camera& camera, const QSize& size)
{
    if (!std::isfinite(sensitivity)) {
        return;
    }
    const double seconds = qBound(0, motion.milliseconds, LongestStep) / 1000.0;
    const double step =
        seconds * qBound(0.0, sensitivity, GreatestSensitivity) / UsualSensitivity / FullDeflection;
    const double pixels = step * ViewsPerSecond * size.height();
    camera.pan({motion.move.x() * pixels, -motion.move.y() * pixels}, size);
    camera.zoom(std::exp2(motion.move.z() * step * DoublingsPerSecond));
    camera.rotate(motion.turn * float(step * TurnsPerSecond * 2 * M_PI));
}

} // namespace cad
