// SPDX-License-Identifier: MIT
#pragma once

/// A point of a run's progress: the work that is done and the time.
struct PacePoint
{
    double work = 0; ///< in any unit
    double time = 0; ///< milliseconds since the start
};
