// SPDX-License-Identifier: MIT
#pragma once

struct RunRecord;

/// Repeats a recorded run in this terminal.
namespace RepeatedRun {

/// Uses the program, arguments, environment and machines file of the record. If the model has
/// changed since, runs the recorded copy. Returns the exit code of "kestdesk --non-interactive".
int exec(const RunRecord& record, bool isJson);

/// The same for a run that has not done all of its work: the component takes over what it has kept.
/// The model is run as it is now.
int resume(const RunRecord& record, bool isJson);

} // namespace RepeatedRun
