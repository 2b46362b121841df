// SPDX-License-Identifier: MIT
#include "ChildProcesses.h"

#include <algorithm>
#include <utility>

ChildProcesses::ChildProcesses(StopTimes times, QObject* parent)
    : QObject(parent)
    , m_times(times)
    , m_end({[this] { return isAnyAlive(); }, [this] { terminateAll(); }, [this] { killAll(); }})
{
    connect(&m_end, &StagedEnd::ended, this, &ChildProcesses::allEnded);
}

ChildProcesses::~ChildProcesses()
{
    killAll();
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
    if (!m_isStopping) {
        m_isStopping = true;
        m_end.start(m_times);
    }
}

bool ChildProcesses::isAnyAlive() const
{
    return std::any_of(m_processes.begin(), m_processes.end(), [](const auto& entry) {
        return entry.second->isRunning() || entry.second->isGroupAlive();
    });
}

void ChildProcesses::terminateAll()
{
    for (const auto& entry : m_processes) {
        entry.second->terminateGroup();
    }
}

void ChildProcesses::killAll()
{
    for (const auto& entry : m_processes) {
        entry.second->killGroup();
    }
}
