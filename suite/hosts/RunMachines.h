#pragma once

#include "MachinesFile.h"
#include "SlurmJob.h"

#include <QStringList>

#include <optional>

namespace suite {

/// The hosts of a parallel run: those of its machines file, or in a job of a scheduler those of the
/// job.
///
/// Hosts outside of the job are not used. So the job takes the place of a file that names one of
/// these, or no host. A file that names hosts of the job alone is used as it is, and so is one with
/// errors, which are the user's to mend.
class RunMachines
{
public:
    /// Reads the machines file, if there is one.
    explicit RunMachines(const std::optional<QString>& path, const SlurmJob& job = SlurmJob());

    /// Whether there is a file or a job. The machines are empty where there is neither.
    bool areThere() const { return m_areThere; }

    /// Whether the hosts are the job's.
    bool areOfJob() const { return m_areOfJob; }

    const MachinesFile& machines() const { return m_machines; }

    /// Why the hosts cannot be used, as sentences without full stops; empty when they can.
    const QStringList& errors() const { return m_errors; }

    /// Where the hosts are from: "the machines file" or "the Slurm job 17".
    QString source() const { return m_source; }

    /// Why the job's hosts are used and not those of the file; empty where the file names none.
    QString remark() const { return m_remark; }

private:
    void choose(const SlurmJob& job, bool hasFile);

    MachinesFile m_machines;
    QStringList m_errors;
    QString m_source;
    QString m_remark;
    bool m_areThere;
    bool m_areOfJob = false;
};

} // namespace suite
