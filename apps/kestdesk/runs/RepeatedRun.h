#pragma once

struct RunRecord;

/// Runs a recorded run once more in this terminal.
namespace RepeatedRun {

/// With the program, arguments, environment and machines file of the record. A model that has been
/// changed since is run from a copy of what it was. Returns the exit code of
/// "kestdesk --non-interactive".
int exec(const RunRecord& record, bool isJson);

/// The same for a run that has not done all of its work: the component takes over what it has kept.
/// The model is run as it is now.
int resume(const RunRecord& record, bool isJson);

} // namespace RepeatedRun
