// SPDX-License-Identifier: MIT
#include "RunMachines.h"

namespace suite {

RunMachines::RunMachines(const std::optional<QString>& path, const SlurmJob& job)
    : m_source(QStringLiteral("the machines file")), m_hasSource(path || job.isThere())
{
    if (path) {
        m_machines = MachinesFile::read(*path);
        m_errors = m_machines.errors();
    }
    if (job.isThere() && (m_machines.isValid() || m_machines.namesNoHost())) {
        choose(job, path.has_value());
    }
}

// Without the job's hosts it cannot be said which of the file's may be used.
void RunMachines::choose(const SlurmJob& job, bool hasFile)
{
    if (!job.error().isEmpty()) {
        m_errors = QStringList(job.error());
        return;
    }
    const QString foreign = job.firstForeignHost(m_machines);
    if (hasFile && m_machines.isValid() && foreign.isEmpty()) {
        return;
    }
    if (!foreign.isEmpty()) {
        m_remark = QStringLiteral("the machines file names the host '%1', which does not belong to "
                                  "%2, so the hosts of the job are used")
                       .arg(foreign, job.name());
    }
    m_machines = job.machines();
    m_errors.clear();
    m_source = job.name();
    m_isFromJob = true;
}

} // namespace suite
