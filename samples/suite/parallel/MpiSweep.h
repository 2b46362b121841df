// SPDX-License-Identifier: MIT
#pragma once

#include "FramedProcess.h"
#include "Priority.h"
#include "SweepDeck.h"
#include "SweepRunner.h"

#include <MachinesFile.h>
#include <StagedEnd.h>

#include <map>

namespace suite {

/// Where and how a parallel sweep runs.
struct ParallelSetup
{
    std::optional<MachinesFile> machines; ///< nothing: processes on this machine only
    int processes = 1;
    Priority priority;
};

/// Solves a model at its frequencies with processes of the parallel runtime, on one or several
/// machines: "mpiexec" starts the program "sweepkest" on each, and the first of them distributes
/// the frequencies.
class MpiSweep : public SweepRunner
{
    Q_OBJECT

public:
    MpiSweep(SweepDeck deck, ParallelSetup setup, bool needsImpedance);

    /// Kills the processes that still run.
    ~MpiSweep() override;

    void start() override;
    void stop() override;

private:
    [[nodiscard]] QStringList arguments() const;
    void sendPart();
    void take(const Frame& frame);
    void takeResult(const Frame& frame);
    void takeErrorLine(const QString& line);
    void reportResults();
    void fail(const QString& reason);
    void failBroken(const QString& reason);
    void failSilent();
    void endProcess();
    void end();
    [[nodiscard]] QString hostOf(int rank) const;
    [[nodiscard]] QString hostNames() const;

    SweepDeck m_deck;
    ParallelSetup m_setup;
    bool m_needsImpedance;
    FramedProcess m_process;
    QByteArray m_setupBytes; ///< not sent yet
    std::map<int, EngineOutput> m_waiting;
    int m_nextResult = 0;
    StagedEnd m_processEnd;
    bool m_isStopping = false;
    bool m_isEnded = false;
};

} // namespace suite
