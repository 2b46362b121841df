// SPDX-License-Identifier: MIT
#pragma once

#include "PaceExpectation.h"

#include <atomic>

class RunArchive;
struct RunRecord;
struct RunSize;

/// Derives the expected pace of a new run from the archive.
namespace PaceHistory {

/// Reads all records, and the messages of the few that match best. Waits for the disk: not to be
/// called in the user interface thread. Stops as soon as isCancelled is true.
PaceExpectation expectation(const RunArchive& archive, const RunSize& size,
                            const std::atomic<bool>& isCancelled);

} // namespace PaceHistory
