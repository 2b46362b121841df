// SPDX-License-Identifier: MIT
#pragma once

#include <Terminal.h>

struct RunComparison;

/// Writes the differences between two runs to a terminal: "-" before lines that only the left one
/// has, "+" before lines that only the right one has.
namespace ComparisonReport {

void write(const RunComparison& comparison, Terminal& terminal);

} // namespace ComparisonReport
