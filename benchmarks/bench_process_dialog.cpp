// The process dialog, visible and with its details open, under a flood from a child, against
// PlainDialog; and how alive it stays meanwhile.
//
// The plain version takes minutes where ours takes a second, so it is given fewer lines; its time
// grows faster than their number, which makes the ratios that are printed too small.
#include "PlainDialog.h"
#include "RatioReporter.h"

#include <DialogStage.h>

#include <QElapsedTimer>
#include <QFile>
#include <QMouseEvent>
#include <QTimer>

#include <algorithm>
#include <memory>
#include <thread>
#include <vector>

#include <unistd.h>

namespace {

double residentBytes()
{
    QFile file(QStringLiteral("/proc/self/statm"));
    if (!file.open(QIODevice::ReadOnly)) {
        return 0;
    }
    const double pages = file.readAll().split(' ').value(1).toDouble();
    return pages * static_cast<double>(sysconf(_SC_PAGESIZE));
}

/// Measures how long a timer of 10 ms is kept waiting.
class GapReader
{
public:
    GapReader()
    {
        m_timer.setTimerType(Qt::PreciseTimer);
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer,
                         [this] { m_gaps.push_back(static_cast<double>(m_clock.restart())); });
        m_clock.start();
        m_timer.start(10);
    }

    void report(benchmark::State& state)
    {
        std::sort(m_gaps.begin(), m_gaps.end());
        if (!m_gaps.empty()) {
            state.counters["gap_ms_p99"] = m_gaps[(m_gaps.size() - 1) * 99 / 100];
            state.counters["gap_ms_max"] = m_gaps.back();
        }
    }

private:
    QTimer m_timer;
    QElapsedTimer m_clock;
    std::vector<double> m_gaps;
};

template <typename Condition>
void processEventsUntil(Condition condition)
{
    while (!condition()) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
}

QStringList solverLines(std::int64_t count)
{
    return {QStringLiteral("solver-lines"), QString::number(count)};
}

QStringList warnings(std::int64_t count)
{
    return {QStringLiteral("warnings"), QString::number(count), QStringLiteral("500")};
}

void doNothing(const DialogStage&)
{}

// In another width every line has to be laid out again. Once, in the middle of the flood.
void widenInTheMiddle(const DialogStage& stage, int lines)
{
    const int width = 150;
    const int narrow = stage.tabs()->minimumWidth() + width;
    if (stage.output()->document()->blockCount() > lines / 2 && stage.dialog->width() < narrow) {
        stage.dialog->resize(stage.dialog->width() + width, stage.dialog->height());
    }
}

// The deed is done again and again during the run.
template <typename Deed>
void runDialog(benchmark::State& state, const QStringList& commands, int lines, Deed deed)
{
    for (auto _ : state) {
        state.PauseTiming();
        const DialogStage stage;
        SettingsFolders::write(stage.folders.userFile(), "[options]\nRunDetailsShown=true\n");
        const double before = residentBytes();
        GapReader gaps;
        state.ResumeTiming();
        stage.run(commands);
        processEventsUntil([&] {
            deed(stage);
            return stage.ok()->isEnabled();
        });
        state.PauseTiming();
        if (stage.output()->document()->blockCount() != lines || !stage.output()->isVisible()) {
            state.SkipWithError("lines were lost, or not visible");
        }
        gaps.report(state);
        state.counters["bytes_a_line"] = (residentBytes() - before) / lines;
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * lines);
}

void runPlain(benchmark::State& state, const QStringList& commands, int lines)
{
    for (auto _ : state) {
        common_ProcessRunner<common_KestProcessMessage> runner;
        const PlainDialog dialog(&runner);
        GapReader gaps;
        runner.setExecutable(QStringLiteral(KEST_TEST_CHILD));
        runner.setArguments(commands);
        runner.run();
        processEventsUntil([&runner] { return !runner.isRunning(); });
        if (dialog.lineCount() != lines) {
            state.SkipWithError("lines were lost");
        }
        gaps.report(state);
    }
    state.SetItemsProcessed(state.iterations() * lines);
}

void mixedLines(benchmark::State& state)
{
    runDialog(state, solverLines(state.range(0)), static_cast<int>(state.range(0)), doNothing);
}

void mixedLinesResized(benchmark::State& state)
{
    const int lines = static_cast<int>(state.range(0));
    runDialog(state, solverLines(lines), lines,
              [lines](const DialogStage& stage) { widenInTheMiddle(stage, lines); });
}

void mixedLinesPlain(benchmark::State& state)
{
    runPlain(state, solverLines(state.range(0)), static_cast<int>(state.range(0)));
}

void manyWarnings(benchmark::State& state)
{
    runDialog(state, warnings(state.range(0)), static_cast<int>(state.range(0)), doNothing);
}

void fewerWarnings(benchmark::State& state)
{
    manyWarnings(state);
}

void fewerWarningsPlain(benchmark::State& state)
{
    runPlain(state, warnings(state.range(0)), static_cast<int>(state.range(0)));
}

// From a click of the mouse, sent by another thread into the middle of the flood, to the question,
// and from the answer to the end of the process with all its output shown.
void stopInAFlood(benchmark::State& state)
{
    double toQuestion = 0;
    double toEnd = 0;
    for (auto _ : state) {
        const DialogStage stage;
        SettingsFolders::write(stage.folders.userFile(), "[options]\nRunDetailsShown=true\n");
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

} // namespace

// The child works at the same time: what counts is the wall clock.
BENCHMARK(mixedLines)->Arg(200000)->UseRealTime()->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(mixedLinesResized)
    ->Arg(200000)
    ->UseRealTime()
    ->Iterations(1)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(mixedLinesPlain)->Arg(20000)->UseRealTime()->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(manyWarnings)->Arg(20000)->UseRealTime()->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(fewerWarnings)->Arg(2000)->UseRealTime()->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(fewerWarningsPlain)
    ->Arg(2000)
    ->UseRealTime()
    ->Iterations(1)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(stopInAFlood)->UseRealTime()->Iterations(10)->Unit(benchmark::kMillisecond);

int main(int argc, char* argv[])
{
    const QApplication application(argc, argv);
    return runBenchmarks(
        argc, argv,
        {{"200,000 mixed lines, dialog to plain version (20,000)", "mixedLines", "mixedLinesPlain",
          5},
         {"20,000 warnings, dialog to plain version (2,000)", "manyWarnings", "fewerWarningsPlain",
          100},
         {"20,000 warnings to 2,000, speed", "manyWarnings", "fewerWarnings", 10.0 / 15.0}});
}
