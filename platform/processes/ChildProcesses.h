#pragma once

#include "ChildProcess.h"
#include "StagedEnd.h"

#include <map>
#include <memory>

/// The child processes that a program runs at the moment, by number, and their end.
class ChildProcesses : public QObject
{
    Q_OBJECT

public:
    explicit ChildProcesses(StopTimes times, QObject* parent = nullptr);

    /// Kills what still runs.
    ~ChildProcesses() override;

    /// Takes a process over, before or after its start.
    void add(int number, std::unique_ptr<ChildProcess> process);

    /// Forgets a process that has ended. It is deleted when control is back in the event loop, so a
    /// slot of its own signals may call this. Null when there is no such process.
    ChildProcess* release(int number);

    [[nodiscard]] int count() const { return static_cast<int>(m_processes.size()); }

    /// Asks all processes to end, and kills after a moment those that stay. Only the first call
    /// counts.
    void stop();

Q_SIGNALS:
    /// No process runs any more after stop(), or what runs cannot be killed. Once, from the event
    /// loop, also when there was none.
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
