// SPDX-License-Identifier: MIT
#pragma once

#include "Terminal.h"

#include <MachinesFile.h>
#include <RunMachines.h>
#include <SlurmJob.h>

#include <common_MachineFileFinder.h>

/// Describes the machines file in use, and the scheduler job that this program runs in.
class MachinesReport
{
public:
    /// Finds and reads the file and the job.
    MachinesReport();

    /// Whether there is a file or a job.
    bool isFound() const { return m_machines.hasSource(); }

    /// Whether runs can use the result.
    bool isUsable() const { return isFound() && m_machines.errors().isEmpty(); }

    /// The hosts that runs use; empty if nothing was found, or if a job cannot be used.
    const suite::MachinesFile& machines() const { return m_machines.machines(); }

    /// As text for users: of many hosts or findings only the first, and the number of the others.
    void write(Terminal& terminal) const;

    /// As JSON, for programs.
    QByteArray json() const;

    /// One line for each finding in the file; of many only the first.
    static void writeFindings(const suite::MachinesFile& file, Terminal& terminal);

private:
    void writeFile(Terminal& terminal) const;
    void writeJob(Terminal& terminal) const;
    void writeSearch(Terminal& terminal) const;
    void writeEntries(Terminal& terminal, int processes) const;
    QString fileName() const;
    QString fileRemark() const;

    common_MachineFileFinder m_finder;
    suite::SlurmJob m_job;
    suite::RunMachines m_machines;
};
