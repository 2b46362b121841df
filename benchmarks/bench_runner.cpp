// The process runner against a bare QProcess loop that reads and decodes the same lines.
#include "RatioReporter.h"

#include <common_ObserverOf.h>
#include <common_ProcessRunner.h>

#include <QCoreApplication>
#include <QEventLoop>
#include <QProcess>

namespace {

constexpr int lineCount = 1000000;

QStringList floodArguments()
{
    return {QStringLiteral("flood"), QString::number(lineCount), QStringLiteral("55")};
}

void finish(benchmark::State& state, int received)
{
    if (received != lineCount) {
        state.SkipWithError("lines were lost");
    }
    state.SetItemsProcessed(state.iterations() * lineCount);
}

void bareProcess(benchmark::State& state)
{
    int received = 0;
    for (auto _ : state) {
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
        process.start(QStringLiteral(KEST_TEST_CHILD), floodArguments());
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
    for (auto _ : state) {
        common_ProcessRunner<TMessage> processRunner;
        QEventLoop loop;
        const Counter counter(&processRunner, loop);
        processRunner.setExecutable(QStringLiteral(KEST_TEST_CHILD));
        processRunner.setArguments(floodArguments());
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

} // namespace

// The child works at the same time: what counts is the wall clock.
BENCHMARK(bareProcess)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(runnerWithPlainMessages)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(runnerWithSolverMessages)->UseRealTime()->Unit(benchmark::kMillisecond);

int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    return runBenchmarks(argc, argv,
                         {{"runner with plain messages to bare QProcess", "runnerWithPlainMessages",
                           "bareProcess", 0.5},
                          {"runner with solver messages to bare QProcess",
                           "runnerWithSolverMessages", "bareProcess", 0.35}});
}
