// SPDX-License-Identifier: MIT
#pragma once

#include "MachinesFile.h"
#include "SlurmJob.h"

#include <QStringList>

#include <optional>

namespace suite {

/// The hosts of a parallel run: from its machines file, or in a scheduler job from the job.
///
/// Hosts outside of the job are not used. So the job replaces a file that names such a host, or no
/// host. A file that only names hosts of the job is used as it is. A file with errors is not
/// replaced either: the user has to correct it.
class RunMachines
{
public:
    /// Reads the machines file, if there is one.
    explicit RunMachines(const std::optional<QString>& path, const SlurmJob& job = SlurmJob());

    /// Whether there is a file or a job. The machines are empty where there is neither.
    bool hasSource() const { return m_hasSource; }

    /// Whether the hosts are the job's.
    bool isFromJob() const { return m_isFromJob; }

    const MachinesFile& machines() const { return m_machines; }

    /// Why the hosts cannot be used, as sentences without full stops; empty if they can.
    const QStringList& errors() const { return m_errors; }

    /// The source of the hosts: "the machines file" or "the Slurm job 17".
    QString source() const { return m_source; }

    /// Why the job's hosts are used instead of the file's; empty if the file names none.
    QString remark() const { return m_remark; }

private:
    void choose(const SlurmJob& job, bool hasFile);

    MachinesFile m_machines;
    QStringList m_errors;
    QString m_source;
    QString m_remark;
    bool m_hasSource;
    bool m_isFromJob = false;
};

} // namespace suite
