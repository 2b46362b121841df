#pragma once

#include "PaceExpectation.h"

#include <atomic>

class RunArchive;
struct RunRecord;
struct RunSize;

/// What the archive's runs tell of the pace of a new one.
namespace PaceHistory {

/// Reads the records, and of a few that match best the messages. Waits for the disk: not for the
/// thread of a window. Gives up when that becomes true.
PaceExpectation expectation(const RunArchive& archive, const RunSize& size,
                            const std::atomic<bool>& isCancelled);

} // namespace PaceHistory
