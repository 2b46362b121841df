// SPDX-License-Identifier: MIT
#pragma once

class QString;
struct RunRecord;

/// What a run failed of.
namespace RunProblem {

/// The first error message of a run that failed or did not start about which something can be done
/// from here, or else why it ended; empty for other runs. Reads the record's messages, though not
/// any number of them.
QString of(const RunRecord& record);

} // namespace RunProblem
