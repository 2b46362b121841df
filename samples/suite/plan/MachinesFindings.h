// SPDX-License-Identifier: MIT
#pragma once

#include "Finding.h"

#include <RunMachines.h>

/// The findings of a component about the hosts of its run.
namespace suite::MachinesFindings {

/// Adds the errors of the hosts, and a remark if a job's hosts are used instead of the machines
/// file.
void add(FindingList& findings, const RunMachines& machines);

} // namespace suite::MachinesFindings
