// SPDX-License-Identifier: MIT
// The process dialog under a flood from a child, folded as it is at first and with its details
// open, against PlainDialog; and how alive it stays meanwhile.
//
// The plain version takes minutes where ours takes a second, so it is given fewer lines; its time
// grows faster than their number, which makes the ratios that are printed too small.
#include "DialogFlood.h"
#include "PlainDialog.h"
#include "RatioReporter.h"

#include <QMouseEvent>

#include <thread>

namespace {

QStringList solverLines(std::int64_t count)
{
    return {QStringLiteral("solver-lines"), QString::number(count)};
}

QStringList warnings(std::int64_t count)
{
    return {QStringLiteral("warnings"), QString::number(count), QStringLiteral("500")};
}

void runDialog(benchmark::State& state, const QStringList& commands, Details details)
{
    const auto lines = static_cast<int>(state.range(0));
    for ([[maybe_unused]] auto _ : state) {
        const DialogStage stage;
        choose(stage, details);
        const RunClock clock(stage.runner.get());
        GapReader gaps;
        stage.run(commands);
        processEventsUntil([&stage] { return stage.ok()->isEnabled(); });
        state.SetIterationTime(clock.seconds);
        gaps.report(state);
        if (stage.output()->document()->blockCount() != lines ||
            stage.output()->isVisible() != (details == Details::Open)) {
            state.SkipWithError("lines were lost, or the details are not as they should be");
        }
    }
    state.SetItemsProcessed(state.iterations() * lines);
}

void runPlain(benchmark::State& state, const QStringList& commands)
{
    const auto lines = static_cast<int>(state.range(0));
    for ([[maybe_unused]] auto _ : state) {
        common_ProcessRunner<common_KestProcessMessage> runner;
        const PlainDialog dialog(&runner);
        const RunClock clock(&runner);
        GapReader gaps;
        runner.setExecutable(QStringLiteral(KEST_TEST_CHILD));
        runner.setArguments(commands);
        runner.run();
        processEventsUntil([&runner] { return !runner.isRunning(); });
        state.SetIterationTime(clock.seconds);
        gaps.report(state);
        if (dialog.lineCount() != lines) {
            state.SkipWithError("lines were lost");
        }
    }
    state.SetItemsProcessed(state.iterations() * lines);
}

void linesFolded(benchmark::State& state)
{
    runDialog(state, solverLines(state.range(0)), Details::Folded);
}

void linesOpen(benchmark::State& state)
{
    runDialog(state, solverLines(state.range(0)), Details::Open);
}

void linesPlain(benchmark::State& state)
{
    runPlain(state, solverLines(state.range(0)));
}

void warningsFolded(benchmark::State& state)
{
    runDialog(state, warnings(state.range(0)), Details::Folded);
}

void warningsOpen(benchmark::State& state)
{
    runDialog(state, warnings(state.range(0)), Details::Open);
}

void warningsPlain(benchmark::State& state)
{
    runPlain(state, warnings(state.range(0)));
}

// From a click of the mouse, sent by another thread into the middle of the flood, to the question,
// and from the answer to the end of the process with all its output shown.
void stopInAFlood(benchmark::State& state)
{
    double toQuestion = 0;
    double toEnd = 0;
    for ([[maybe_unused]] auto _ : state) {
        const DialogStage stage;
        choose(stage, Details::Open);
        stage.run(solverLines(100000000));
        processEventsUntil([&] { return stage.output()->document()->blockCount() > 30000; });
        QElapsedTimer clock;
        QTimer answerer;
        QObject::connect(&answerer, &QTimer::timeout, &answerer, [&] {
            if (auto* const box = QApplication::activeModalWidget()) {
                toQuestion = std::max(toQuestion, static_cast<double>(clock.restart()));
                answerer.stop();
                box->findChildren<QAbstractButton*>().constFirst()->click();
            }
        });
        answerer.start(1);
        QPushButton* const button = stage.stop();
        std::thread user([button, &clock] {
            std::this_thread::sleep_for(std::chrono::milliseconds(7));
            clock.start();
            for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
                const auto buttons =
                    type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton;
                QCoreApplication::postEvent(
                    button,
                    new QMouseEvent(type, QPointF(5, 5), Qt::LeftButton, buttons, Qt::NoModifier));
            }
        });
        processEventsUntil([&stage] { return stage.ok()->isEnabled(); });
        toEnd = std::max(toEnd, static_cast<double>(clock.elapsed()));
        user.join();
    }
    state.counters["question_ms_max"] = toQuestion;
    state.counters["end_ms_max"] = toEnd;
}

void overLines(benchmark::internal::Benchmark* run)
{
    run->UseManualTime()->Iterations(1)->Unit(benchmark::kMillisecond);
    for (const int lines : {1000, 10000, 100000, 200000, 1000000}) {
        run->Arg(lines);
    }
}

void overWarnings(benchmark::internal::Benchmark* run)
{
    run->UseManualTime()->Iterations(1)->Unit(benchmark::kMillisecond);
    for (const int lines : {1000, 10000, 20000, 100000}) {
        run->Arg(lines);
    }
}

void overFew(benchmark::internal::Benchmark* run)
{
    run->UseManualTime()->Iterations(1)->Unit(benchmark::kMillisecond);
    run->Arg(1000)->Arg(2000);
}

} // namespace

BENCHMARK(linesFolded)->Apply(overLines);
BENCHMARK(linesOpen)->Apply(overLines);
BENCHMARK(linesPlain)->Apply(overFew)->Arg(10000)->Arg(20000);
BENCHMARK(warningsFolded)->Apply(overWarnings);
BENCHMARK(warningsOpen)->Apply(overWarnings);
BENCHMARK(warningsPlain)->Apply(overFew);
BENCHMARK(stopInAFlood)->UseRealTime()->Iterations(10)->Unit(benchmark::kMillisecond);

int main(int argc, char* argv[])
{
    const QApplication application(argc, argv);
    constexpr double leastGrowth = 1 / 1.3;
    return runBenchmarks(
        argc, argv,
        {{"200,000 lines open, to plain version (20,000)", "linesOpen/200000", "linesPlain/20000",
          12},
         {"200,000 lines folded, to open", "linesFolded/200000", "linesOpen/200000", 1},
         {"1,000,000 lines open, to 10,000", "linesOpen/1000000", "linesOpen/10000", leastGrowth},
         {"1,000,000 lines folded, to 10,000", "linesFolded/1000000", "linesFolded/10000",
          leastGrowth},
         {"20,000 warnings open, to plain version (2,000)", "warningsOpen/20000",
          "warningsPlain/2000", 100},
         {"100,000 warnings open, to 10,000", "warningsOpen/100000", "warningsOpen/10000",
          leastGrowth},
         {"100,000 warnings folded, to 10,000", "warningsFolded/100000", "warningsFolded/10000",
          leastGrowth}});
}
