// SPDX-License-Identifier: MIT
#pragma once

#include <StagedEnd.h>

namespace suite {

// A component has to end its own child processes before the program that started it kills it.

constexpr StopTimes parallelEngineStopTimes = {200, 500}; ///< engines below the parallel runtime
constexpr StopTimes engineStopTimes = {300, 700};
constexpr StopTimes adaptkestStopTimes = {1100, 1300};
constexpr StopTimes runkestStopTimes = {1500, 1800};
constexpr StopTimes remoteRunStopTimes = {1200, 1900}; ///< the connection to another host
constexpr StopTimes parallelRuntimeStopTimes = {1700, 1900};

} // namespace suite
