#pragma once

#include "Terminal.h"

#include <MachinesFile.h>
#include <RunMachines.h>
#include <SlurmJob.h>

#include <common_MachineFileFinder.h>

/// What there is to say about the machines file in use, and about the job of the scheduler that
/// this program runs in.
class MachinesReport
{
public:
    /// Looks for the file and the job and reads them.
    MachinesReport();

    /// Whether there is a file or a job.
    bool isFound() const { return m_machines.hasSource(); }

    /// Whether runs can use what was found.
    bool isUsable() const { return isFound() && m_machines.errors().isEmpty(); }

    /// The hosts that runs use; empty where nothing was found, or where a job cannot be used.
    const suite::MachinesFile& machines() const { return m_machines.machines(); }

    /// For people: of many hosts or findings only the first, and how many more there are.
    void write(Terminal& terminal) const;

    /// For programs.
    QByteArray json() const;

    /// One for each finding of the file, of many only the first.
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
