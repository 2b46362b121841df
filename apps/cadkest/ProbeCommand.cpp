// SPDX-License-Identifier: MIT
#include "ProbeCommand.h"

#include "HardwareRenderer.h"
#include "Scene.h"
#include "SoftwareRenderer.h"

#include <QCoreApplication>

#include <cstdio>
#include <cstdlib>

namespace {

const QSize pictureSize(96, 72);
constexpr int unlikeColour = 64;    // in any of red, green and blue
constexpr double mostUnlike = 0.05; // of the pixels: edges may lie a little aside

// Thick wires that cross, so that faces, edges and depth count.
Scene crossedWires()
{
    Scene scene;
    for (const double height : {0.0, 0.3}) {
        suite::Wire wire;
        wire.radius = 0.15;
        wire.points = height > 0
                          ? QVector<suite::Point>{{0, -1, height}, {0, 0, height}, {0, 1, height}}
                          : QVector<suite::Point>{{-1, 0, height}, {0, 0, height}, {1, 0, height}};
        scene.structure.wires.append(wire);
    }
    return scene;
}

Frame testFrame()
{
    Frame frame;
    frame.mesh = std::make_shared<SceneMesh>(meshOf(crossedWires(), Thickness::True));
    frame.size = pictureSize;
    frame.camera.lookFrom(Direction::Isometric);
    frame.camera.fit(*frame.mesh, frame.size);
    return frame;
}

bool areAlike(QRgb left, QRgb right)
{
    return std::abs(qRed(left) - qRed(right)) < unlikeColour &&
           std::abs(qGreen(left) - qGreen(right)) < unlikeColour &&
           std::abs(qBlue(left) - qBlue(right)) < unlikeColour;
}

bool areAlike(const QImage& left, const QImage& right)
{
    int unlike = 0;
    for (int y = 0; y < right.height(); ++y) {
        for (int x = 0; x < right.width(); ++x) {
            unlike += areAlike(left.pixel(x, y), right.pixel(x, y)) ? 0 : 1;
        }
    }
    return unlike < mostUnlike * right.width() * right.height();
}

QString errorOf(HardwareRenderer& renderer)
{
    if (!renderer.error().isEmpty()) {
        return renderer.error();
    }
    const Frame frame = testFrame();
    const QImage drawn = renderer.render(frame);
    if (drawn.size() != frame.size) {
        return QCoreApplication::translate("ProbeCommand", "OpenGL draws nothing");
    }
    return areAlike(drawn, SoftwareRenderer().render(frame))
               ? QString()
               : QCoreApplication::translate("ProbeCommand", "OpenGL draws wrong pictures");
}

} // namespace

int tryHardware()
{
    HardwareRenderer renderer;
    const QString error = errorOf(renderer);
    if (error.isEmpty()) {
        return 0;
    }
    std::puts(qPrintable(error));
    return 1;
}
