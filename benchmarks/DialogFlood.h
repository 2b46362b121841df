// SPDX-License-Identifier: MIT
#pragma once

#include <DialogStage.h>

#include <benchmark/benchmark.h>

#include <QElapsedTimer>
#include <QFile>
#include <QTimer>

#include <algorithm>
#include <vector>

#include <unistd.h>

/// Of this process.
inline double residentBytes()
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

/// Takes the time from the first message of a run to its end.
class RunClock : public common_ObserverOf<common_IProcessRunnerObserver>
{
public:
    explicit RunClock(common_ProcessRunnerBase* runner) : common_ObserverOf(runner) {}

    void onProcessStarted(const QString&, const QStringList&) override {}
    void onFailedProcessStarted(const QString&, const QStringList&, const QString&) override {}
    void onProcessMessageReceived(const common_IProcessMessage&) override
    {
        if (!m_clock.isValid()) {
            m_clock.start();
        }
    }
    void onProcessDone() override { seconds = static_cast<double>(m_clock.nsecsElapsed()) / 1e9; }
    void onExitCodeChanged(int) override {}

    double seconds = 0;

private:
    QElapsedTimer m_clock;
};

template <typename Condition>
void processEventsUntil(Condition condition)
{
    while (!condition()) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
}

/// What the user's settings say of the details when a dialog opens: nothing at the first start.
enum class Details { Folded, Open };

inline void choose(const DialogStage& stage, Details details)
{
    if (details == Details::Open) {
        SettingsFolders::write(stage.folders.userFile(), "[options]\nRunDetailsShown=true\n");
    }
}
