// SPDX-License-Identifier: MIT
#pragma once

#include "CommandLine.h"
#include "Finding.h"
#include "Priority.h"
#include "SweepDeck.h"
#include "SweepRunner.h"

#include <RunMachines.h>

#include <memory>
#include <optional>

namespace suite {

/// Decides from the options of runkest where a sweep runs: in engine processes of this component,
/// or in processes of the parallel runtime.
class SweepPlan
{
public:
    /// Reads the options, the machines file that they name, and the job that this program runs in.
    explicit SweepPlan(const CommandLine& line);

    /// Errors and warnings for the user. After an error makeRunner() must not be called.
    [[nodiscard]] const FindingList& findings() const { return m_findings; }

    /// The number of frequencies that are solved at once, for a sweep of this many.
    [[nodiscard]] int processes(int frequencies) const;

    /// The hosts and processes, or the number of processes, for a line of text.
    [[nodiscard]] QString description(int frequencies) const;

    /// Makes the runner that solves the decks.
    [[nodiscard]] std::unique_ptr<SweepRunner> makeRunner(const SweepDeck& deck,
                                                          bool needsImpedance) const;

private:
    void readMachines(const CommandLine& line);
    void readRemoteHost(const CommandLine& line);
    void readProcesses(const CommandLine& line);
    void checkHosts();
    void findEngine();

    FindingList m_findings;
    std::optional<MachinesFile> m_machines;
    QString m_source; ///< of the machines
    Priority m_priority;
    QString m_engine;
    int m_processes = 1;
    bool m_isParallel = false;
};

} // namespace suite
