// SPDX-License-Identifier: MIT
// What an application pays for the library before it has done anything: loading it, which registers
// the properties, and constructing the process dialog.
#include <DialogStage.h>

#include <benchmark/benchmark.h>

#include <cstdio>

namespace {

// In a process that has Qt already, as an application has, and the library not yet.
void loadLibrary(benchmark::State& state)
{
    for ([[maybe_unused]] auto _ : state) {
        FILE* const loader = popen(KEST_LOADER " " KEST_COMMON_LIBRARY, "r");
        double seconds = 0;
        if (!loader || std::fscanf(loader, "%lf", &seconds) != 1) {
            state.SkipWithError("the library cannot be loaded");
            break;
        }
        pclose(loader);
        state.SetIterationTime(seconds);
    }
}

void constructDialog(benchmark::State& state)
{
    const DialogStage stage;
    for ([[maybe_unused]] auto _ : state) {
        delete new common_KestProcessDialog(stage.runner, nullptr);
    }
}

} // namespace

BENCHMARK(loadLibrary)->UseManualTime()->Iterations(20)->Unit(benchmark::kMillisecond);
BENCHMARK(constructDialog)->Unit(benchmark::kMillisecond);

int main(int argc, char* argv[])
{
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 1;
    }
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
