#pragma once

/// When a run had done how much.
struct PacePoint
{
    double work = 0; ///< in any unit
    double time = 0; ///< milliseconds since the start
};
