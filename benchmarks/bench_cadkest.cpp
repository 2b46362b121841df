// SPDX-License-Identifier: MIT
// A net of 10,000 wires turned by software and by OpenGL, at the size of a large window.
#include "RatioReporter.h"

#include <HardwareRenderer.h>
#include <Scenes.h>
#include <SoftwareRenderer.h>

#include <QGuiApplication>

namespace {

constexpr int wireCount = 10000;
constexpr int framesOfTurn = 100;
const QSize pictureSize(1280, 800);

const Frame& firstFrame()
{
    static const Frame frame = frameOf(net(wireCount), Direction::Isometric, pictureSize);
    return frame;
}

// One item is one frame.
void turn(benchmark::State& state, Renderer& renderer)
{
    renderer.render(firstFrame());
    for ([[maybe_unused]] auto _ : state) {
        Frame frame = firstFrame();
        for (int i = 0; i < framesOfTurn; ++i) {
            frame.camera.turn({0.06, 0.01});
            benchmark::DoNotOptimize(renderer.render(frame));
        }
    }
    state.SetItemsProcessed(state.iterations() * framesOfTurn);
}

void softwareTurn(benchmark::State& state)
{
    SoftwareRenderer renderer;
    turn(state, renderer);
}

void hardwareTurn(benchmark::State& state)
{
    HardwareRenderer renderer;
    if (!renderer.error().isEmpty()) {
        state.SkipWithError(qPrintable(renderer.error()));
        return;
    }
    turn(state, renderer);
}

} // namespace

BENCHMARK(softwareTurn)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(hardwareTurn)->Unit(benchmark::kMillisecond)->UseRealTime();

int main(int argc, char* argv[])
{
    const QGuiApplication application(argc, argv);
    return runBenchmarks(
        argc, argv,
        {{"frames by software to frames by OpenGL", "softwareTurn", "hardwareTurn", 1}});
}
