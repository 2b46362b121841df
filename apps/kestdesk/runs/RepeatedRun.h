#pragma once

struct RunRecord;

/// Repeats a recorded run in this terminal.
namespace RepeatedRun {

/// Uses the program, arguments, environment and machines file of the record. If the model has
/// changed since, runs the recorded copy. Returns the exit code of "kestdesk --non-interactive".
int exec(const RunRecord& record, bool isJson);

} // namespace RepeatedRun
