// SPDX-License-Identifier: MIT
#pragma once

class QString;
struct RunRecord;

/// Continues a recorded run that has not done all of its work: with what it has left beside its
/// model, and otherwise exactly as it was started.
namespace ResumedRun {

/// Why the run cannot be resumed, as a sentence; empty when it can. Looks at the disk.
QString obstacle(const RunRecord& record);

/// The record with the command of a run that resumes it.
RunRecord of(RunRecord record);

} // namespace ResumedRun
