#pragma once

#include <Terminal.h>

struct RunComparison;

/// The differences between two runs in a terminal: "-" before what only the left one has, "+"
/// before what only the right one has.
namespace ComparisonReport {

void write(const RunComparison& comparison, Terminal& terminal);

} // namespace ComparisonReport
