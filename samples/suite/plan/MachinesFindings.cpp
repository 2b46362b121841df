// SPDX-License-Identifier: MIT
#include "MachinesFindings.h"

void suite::MachinesFindings::add(FindingList& findings, const RunMachines& machines)
{
    for (const QString& error : machines.errors()) {
        findings.add(FindingKind::MachinesFileUnusable, 0, {error});
    }
    if (!machines.remark().isEmpty()) {
        findings.add(FindingKind::HostsOutsideJob, 0, {machines.remark()});
    }
    if (machines.isFromJob()) {
        findings.add(FindingKind::JobHosts, 0,
                     {machines.source(), QString::number(machines.machines().hosts().size()),
                      QString::number(machines.machines().total())});
    }
}
