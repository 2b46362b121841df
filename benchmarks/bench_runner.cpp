// SPDX-License-Identifier: MIT
// The process runner against a bare QProcess loop that reads and decodes the same lines, and
// against two processes with nothing but a pipe between them, which is the most that any reader can
// reach.
#include "RatioReporter.h"

#include <common_ObserverOf.h>
#include <common_ProcessRunner.h>

#include <QCoreApplication>
#include <QEventLoop>
#include <QProcess>

namespace {

QStringList floodArguments(const benchmark::State& state)
{
    return {QStringLiteral("flood"), QString::number(state.range(0)), QStringLiteral("55")};
}

void finish(benchmark::State& state, std::int64_t received)
{
    if (received != state.range(0)) {
        state.SkipWithError("lines were lost");
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void pipeAlone(benchmark::State& state)
{
    std::int64_t received = 0;
    for ([[maybe_unused]] auto _ : state) {
        QProcess writer;
        QProcess reader;
        writer.setStandardOutputProcess(&reader);
        writer.start(QStringLiteral(KEST_TEST_CHILD), floodArguments(state));
        reader.start(QStringLiteral("wc"), {QStringLiteral("-l")});
        reader.waitForFinished(-1);
        writer.waitForFinished(-1);
        received = reader.readAll().trimmed().toLongLong();
    }
    finish(state, received);
}

void bareProcess(benchmark::State& state)
{
    int received = 0;
    for ([[maybe_unused]] auto _ : state) {
        received = 0;
        QProcess process;
        QEventLoop loop;
        QObject::connect(&process, &QProcess::readyReadStandardOutput, [&process, &received] {
            while (process.canReadLine()) {
                const QString line = QString::fromUtf8(process.readLine(1024));
                benchmark::DoNotOptimize(line);
                ++received;
            }
        });
        QObject::connect(&process, QOverload<int, QProcess::ExitStatus>::of(&QProcess::finished),
                         &loop, &QEventLoop::quit);
        process.start(QStringLiteral(KEST_TEST_CHILD), floodArguments(state));
        loop.exec();
    }
    finish(state, received);
}

class Counter : public common_ObserverOf<common_IProcessRunnerObserver>
{
public:
    Counter(common_ProcessRunnerBase* runner, QEventLoop& loop)
        : common_ObserverOf(runner), m_loop(loop)
    {}

    void onProcessStarted(const QString&, const QStringList&) override {}
    void onFailedProcessStarted(const QString&, const QStringList&, const QString&) override {}
    void onProcessMessageReceived(const common_IProcessMessage&) override { ++received; }
    void onProcessDone() override { m_loop.quit(); }
    void onExitCodeChanged(int) override {}

    int received = 0;

private:
    QEventLoop& m_loop;
};

template <typename TMessage>
void runner(benchmark::State& state)
{
    int received = 0;
    for ([[maybe_unused]] auto _ : state) {
        common_ProcessRunner<TMessage> processRunner;
        QEventLoop loop;
        const Counter counter(&processRunner, loop);
        processRunner.setExecutable(QStringLiteral(KEST_TEST_CHILD));
        processRunner.setArguments(floodArguments(state));
        processRunner.run();
        loop.exec();
        received = counter.received;
    }
    finish(state, received);
}

void runnerWithPlainMessages(benchmark::State& state)
{
    runner<common_GenericProcessMessage>(state);
}

void runnerWithSolverMessages(benchmark::State& state)
{
    runner<common_KestProcessMessage>(state);
}

// The child works at the same time: what counts is the wall clock.
void overLines(benchmark::internal::Benchmark* run)
{
    run->UseRealTime()->Unit(benchmark::kMillisecond);
    for (const int lines : {1000, 10000, 100000, 1000000}) {
        run->Arg(lines);
    }
}

} // namespace

BENCHMARK(pipeAlone)->Apply(overLines);
BENCHMARK(bareProcess)->Apply(overLines);
BENCHMARK(runnerWithPlainMessages)->Apply(overLines);
BENCHMARK(runnerWithSolverMessages)->Apply(overLines);

int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    return runBenchmarks(
        argc, argv,
        {{"runner with plain messages to bare QProcess, 1,000,000 lines",
          "runnerWithPlainMessages/1000000", "bareProcess/1000000", 0.5},
         {"runner with solver messages to bare QProcess, 1,000,000 lines",
          "runnerWithSolverMessages/1000000", "bareProcess/1000000", 0.35},
         {"runner with solver messages to the pipe alone, 1,000,000 lines",
          "runnerWithSolverMessages/1000000", "pipeAlone/1000000", 0},
         {"runner with solver messages, 1,000,000 lines to 10,000",
          "runnerWithSolverMessages/1000000", "runnerWithSolverMessages/10000", 1}});
}
