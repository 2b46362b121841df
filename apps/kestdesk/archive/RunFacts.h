#pragma once

#include "RunRecord.h"

#include <common_RunWrapper.h>

class Run;

/// What a record says of a run, taken from the run and from the computer.
namespace RunFacts {

/// The program of a run that has been set up, and the computer: what is known without reading
/// files.
RunRecord ofProgram(const Run& run);

/// How a run that has been set up is started, now.
RunRecord atStart(const Run& run, common_RunWrapper::RunOptions options);

/// The copy of the machines file that the run was set up with; empty without one.
QString machinesFile(const Run& run);

/// How a run has ended, for RunRecord::endToJson().
RunRecord atEnd(const Run& run);

} // namespace RunFacts
