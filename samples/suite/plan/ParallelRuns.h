// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace suite::ParallelRuns {

/// Why a sweep cannot be spread over processes by the parallel runtime on this system; empty if it
/// can.
QString obstacle();

} // namespace suite::ParallelRuns
