// SPDX-License-Identifier: MIT
#pragma once

#include "RunRecord.h"

#include <common_RunWrapper.h>

class Run;

/// Fills records from a run and from the computer.
namespace RunFacts {

/// The program of a run that has been set up, and the computer: all facts that need no reading of
/// files.
RunRecord ofProgram(const Run& run);

/// How a run that has been set up is started. The start time is now.
RunRecord atStart(const Run& run, common_RunWrapper::RunOptions options);

/// Path of the copy of the machines file that the run was set up with; empty without one.
QString machinesFile(const Run& run);

/// How a run has ended, for RunRecord::endToJson().
RunRecord atEnd(const Run& run);

} // namespace RunFacts
