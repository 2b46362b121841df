// SPDX-License-Identifier: MIT
#pragma once

#include "ChildProcess.h"
#include "StagedEnd.h"

#include <map>
#include <memory>

/// The running child processes of a program, by number. Ends them together.
class ChildProcesses : public QObject
{
    Q_OBJECT

public:
    explicit ChildProcesses(StopTimes times, QObject* parent = nullptr);

    /// Kills the processes that still run.
    ~ChildProcesses() override;

    /// Takes the ownership of a process, before or after its start.
    void add(int number, std::unique_ptr<ChildProcess> process);

    /// Removes a process that has ended. It is deleted by the event loop, so a slot of its signals
    /// may call this. Null if there is no such process.
    ChildProcess* release(int number);

    [[nodiscard]] int count() const { return static_cast<int>(m_processes.size()); }

    /// Asks all processes to end, and kills the remaining ones after a moment. Only the first call
    /// has an effect.
    void stop();

Q_SIGNALS:
    /// After stop(), all processes have ended or cannot be killed. Emitted once, from the event
    /// loop, even if there was no process.
    void allEnded();

private:
    [[nodiscard]] bool isAnyAlive() const;
    void terminateAll();
    void killAll();

    StopTimes m_times;
    std::map<int, std::unique_ptr<ChildProcess>> m_processes;
    StagedEnd m_end;
    bool m_isStopping = false;
};
