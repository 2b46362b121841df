#pragma once

#include "Finding.h"

#include <RunMachines.h>

/// What a component reports about the hosts of its run.
namespace suite::MachinesFindings {

/// Adds the errors of the hosts, and whether they are those of a job and not of the machines file.
void add(FindingList& findings, const RunMachines& machines);

} // namespace suite::MachinesFindings
