#include "ChildProcesses.h"

#include <algorithm>
#include <csignal>

namespace suite {

namespace {

constexpr int watchInterval = 20; // ms

} // namespace

ChildProcesses::ChildProcesses(StopTimes times, QObject* parent) : QObject(parent), m_times(times)
{
    m_endWatch.setInterval(watchInterval);
    connect(&m_endWatch, &QTimer::timeout, this, &ChildProcesses::watchEnd);
}

ChildProcesses::~ChildProcesses()
{
    signalAll(SIGKILL);
}

void ChildProcesses::add(int number, std::unique_ptr<ChildProcess> process)
{
    m_processes.emplace(number, std::move(process));
}

ChildProcess* ChildProcesses::release(int number)
{
    const auto position = m_processes.find(number);
    if (position == m_processes.end()) {
        return nullptr;
    }
    ChildProcess* process = position->second.release();
    m_processes.erase(position);
    process->deleteLater();
    return process;
}

void ChildProcesses::stop()
{
    if (m_stopClock.isValid()) {
        return;
    }
    signalAll(SIGTERM);
    m_stopClock.start();
    m_endWatch.start();
}

void ChildProcesses::watchEnd()
{
    const qint64 elapsed = m_stopClock.elapsed();
    // A child that was about to start its program, or to listen, has not heard the first request.
    signalAll(elapsed >= m_times.asking ? SIGKILL : SIGTERM);
    if (isAnyAlive() && elapsed < m_times.givingUp) {
        return;
    }
    m_endWatch.stop();
    Q_EMIT allEnded();
}

bool ChildProcesses::isAnyAlive() const
{
    return std::any_of(m_processes.begin(), m_processes.end(), [](const auto& entry) {
        return entry.second->state() != QProcess::NotRunning || entry.second->isGroupAlive();
    });
}

void ChildProcesses::signalAll(int signal)
{
    for (const auto& entry : m_processes) {
        entry.second->signalGroup(signal);
    }
}

} // namespace suite
