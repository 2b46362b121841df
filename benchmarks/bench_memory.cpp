// SPDX-License-Identifier: MIT
// The resident memory of a process with a runner, over ten million lines of its child.
#include <common_ObserverOf.h>
#include <common_ProcessRunner.h>

#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QEventLoop>
#include <QFile>

#include <unistd.h>

namespace {

constexpr int lineCount = 10000000;
constexpr int lineCountOfReading = 1000000;

double residentMegabytes()
{
    QFile file(QStringLiteral("/proc/self/statm"));
    if (!file.open(QIODevice::ReadOnly)) {
        return 0;
    }
    const double pages = file.readAll().split(' ').value(1).toDouble();
    return pages * static_cast<double>(sysconf(_SC_PAGESIZE)) / (1 << 20);
}

class MemoryReader : public common_ObserverOf<common_IProcessRunnerObserver>
{
public:
    MemoryReader(common_ProcessRunnerBase* runner, benchmark::State& state, QEventLoop& loop)
        : common_ObserverOf(runner), m_state(state), m_loop(loop)
    {}

    void onProcessStarted(const QString&, const QStringList&) override {}
    void onFailedProcessStarted(const QString&, const QStringList&, const QString&) override {}
    void onProcessMessageReceived(const common_IProcessMessage&) override
    {
        if (++received % lineCountOfReading == 0) {
            m_state.counters["MB_after_" + std::to_string(received / lineCountOfReading) + "M"] =
                residentMegabytes();
        }
    }
    void onProcessDone() override { m_loop.quit(); }
    void onExitCodeChanged(int) override {}

    int received = 0;

private:
    benchmark::State& m_state;
    QEventLoop& m_loop;
};

template <typename TMessage>
void memoryOver10MillionLines(benchmark::State& state)
{
    for ([[maybe_unused]] auto _ : state) {
        common_ProcessRunner<TMessage> runner;
        QEventLoop loop;
        const MemoryReader reader(&runner, state, loop);
        runner.setExecutable(QStringLiteral(KEST_TEST_CHILD));
        runner.setArguments(
            {QStringLiteral("flood"), QString::number(lineCount), QStringLiteral("55")});
        runner.run();
        loop.exec();
        if (reader.received != lineCount) {
            state.SkipWithError("lines were lost");
        }
    }
}

} // namespace

BENCHMARK_TEMPLATE(memoryOver10MillionLines, common_GenericProcessMessage)->Iterations(1);
BENCHMARK_TEMPLATE(memoryOver10MillionLines, common_KestProcessMessage)->Iterations(1);

int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
