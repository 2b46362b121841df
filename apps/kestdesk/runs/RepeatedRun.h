// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

struct RunRecord;

/// Repeats a recorded run in this terminal.
namespace RepeatedRun {

/// Uses the program, arguments, environment and machines file of the record. If the model has
/// changed since, runs the recorded copy. Lines of the left-out hosts are comments in the copy of
/// the machines file that the run gets; standard error names them. Returns the exit code of a run
/// in a terminal.
int exec(const RunRecord& record, const QStringList& leftOutHosts, bool isJson);

/// The same for a run that has not done all of its work: the component takes over what it has kept.
/// The model is run as it is now.
int resume(const RunRecord& record, const QStringList& leftOutHosts, bool isJson);

} // namespace RepeatedRun
