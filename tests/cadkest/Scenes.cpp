// SPDX-License-Identifier: MIT
#include "Scenes.h"

#include <Model.h>
#include <Preprocessor.h>

#include <QtMath>

Scene sceneOfDeck(const QByteArray& deck)
{
    const suite::Preprocessor preprocessor(deck);
    return sceneOf(preprocessor.model());
}

Scene net(int wires)
{
    const int side = qRound(qSqrt(wires / 2.0));
    Scene scene;
    const auto point = [side](int x, int y) {
        // Slightly curved, so that wires hide one another as it turns.
        const double u = 2.0 * x / side - 1;
        const double v = 2.0 * y / side - 1;
        return suite::Point{u, v, 0.4 * (1 - u * u) * (1 - v * v)};
    };
    for (int x = 0; x < side; ++x) {
        for (int y = 0; y < side; ++y) {
            for (const auto& end : {point(x + 1, y), point(x, y + 1)}) {
                suite::Wire wire;
                wire.tag = scene.structure.wires.size() + 1;
                wire.radius = 1e-3;
                wire.points = {point(x, y), end};
                scene.structure.wires.append(wire);
            }
        }
    }
    return scene;
}

Frame frameOf(const Scene& scene, Direction direction, const QSize& size)
{
    Frame frame;
    frame.mesh = std::make_shared<SceneMesh>(meshOf(scene, Thickness::Readable));
    frame.size = size;
    frame.camera.lookFrom(direction);
    frame.camera.fit(*frame.mesh, size);
    return frame;
}

namespace Decks {

const char* const thickCross = "CE\n"
                               "GW 1 5 -1 0 0 1 0 0 0.12\n"
                               "GW 2 5 0 -1 0.3 0 1 0.3 0.12\n"
                               "GW 3 4 0.5 0.5 -0.8 0.5 -0.5 0.8 0.07\n"
                               "GE 0\n"
                               "FR 0 1 0 0 30 0\n"
                               "EX 0 1 2 0 1 0\n"
                               "LD 0 2 4 4 50\n"
                               "XQ\n"
                               "EN\n";

const char* const yagi = "CE\n"
                         "GW 1 21 -0.40 -0.510 0 -0.40 0.510 0 0.003\n"
                         "GW 2 21  0.00 -0.488 0  0.00 0.488 0 0.003\n"
                         "GW 3 21  0.35 -0.450 0  0.35 0.450 0 0.003\n"
                         "GE 0\n"
                         "FR 0 1 0 0 144 0\n"
                         "EX 0 2 11 0 1 0\n"
                         "XQ\n"
                         "EN\n";

const char* const helix = "CE\n"
                          "GH 1 120 0.3 1.2 0.3 0.3 0.3 0.3 0.02\n"
                          "GA 2 30 0.6 0 270 0.03\n"
                          "GE 0\n"
                          "FR 0 1 0 0 30 0\n"
                          "EX 0 1 1 0 1 0\n"
                          "XQ\n"
                          "EN\n";

const char* const monopole = "CE\n"
                             "GW 1 20 0 0 0.5 0 0 10.6 0.02\n"
                             "GW 2 20 0 0 0.5 10.2 0 0.5 0.02\n"
                             "GM 1 7 0 0 45 0 0 0 2\n"
                             "GE -1\n"
                             "GN 2 0 0 0 13 0.005\n"
                             "FR 0 1 0 0 7 0\n"
                             "EX 0 1 1 0 1 0\n"
                             "LD 5 2 0 0 5.8e7\n"
                             "XQ\n"
                             "EN\n";

} // namespace Decks
