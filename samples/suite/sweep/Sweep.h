// SPDX-License-Identifier: MIT
#pragma once

#include "Priority.h"
#include "SweepDeck.h"
#include "SweepRunner.h"

#include <ChildProcesses.h>
#include <TemporaryFolder.h>

#include <map>

namespace suite {

/// Solves a model at its frequencies on this machine, several at once, each in its own engine
/// process.
class Sweep : public SweepRunner
{
    Q_OBJECT

public:
    /// `atOnce` is the number of simultaneous processes. With `needsImpedance`, output without an
    /// impedance is an error.
    Sweep(SweepDeck deck, QString engine, int atOnce, bool needsImpedance);

    void start() override;
    void stop() override;

    /// Sets the priority of the engines. To be called before start().
    void setPriority(Priority priority) { m_priority = priority; }

private:
    void startJobs();
    void startJob(int index);
    void finishJob(int index);
    void reportResults();
    void fail(int index, const QString& reason);
    void endStopped();

    SweepDeck m_deck;
    QString m_engine;
    int m_atOnce;
    bool m_needsImpedance;
    Priority m_priority;
    TemporaryFolder m_folder;
    ChildProcesses m_processes;
    std::map<int, EngineOutput> m_waiting;
    int m_nextStart = 0;
    int m_nextResult = 0;
    bool m_stopping = false;
};

} // namespace suite
