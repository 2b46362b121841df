// SPDX-License-Identifier: MIT
#pragma once

#include "MachinesFile.h"

#include <QProcessEnvironment>

namespace suite {

/// The Slurm job in which this program runs: its hosts, and the number of processes for each.
///
/// The hosts are those of SLURM_JOB_NODELIST. The number of processes is the number of tasks
/// (SLURM_TASKS_PER_NODE), or, if that does not cover all hosts, as in a job step, the number of
/// processors (SLURM_JOB_CPUS_PER_NODE, SLURM_CPUS_ON_NODE).
class SlurmJob
{
public:
    /// Reads the variables that Slurm sets in a job.
    explicit SlurmJob(
        const QProcessEnvironment& environment = QProcessEnvironment::systemEnvironment());

    /// Whether the program runs in a job: SLURM_JOB_ID is set.
    bool isThere() const { return !m_id.isEmpty(); }

    /// For messages: "the Slurm job 17".
    QString name() const;

    QString id() const { return m_id; }

    /// Why the job cannot be used, as a clause that names it; empty if it can, or if there is no
    /// job.
    QString error() const { return m_error; }

    /// The hosts of the job; empty if there is no job, or if it cannot be used.
    const MachinesFile& machines() const { return m_machines; }

    /// The first host of the file that does not belong to the job; empty if all do. Not
    /// case-sensitive; a name with and without domain is the same.
    QString firstForeignHost(const MachinesFile& file) const;

private:
    void read(const QProcessEnvironment& environment);
    QVector<int> readCounts(const QProcessEnvironment& environment, int hosts);
    void fail(const QString& reason);

    QString m_id;
    QString m_error;
    MachinesFile m_machines;
};

} // namespace suite
