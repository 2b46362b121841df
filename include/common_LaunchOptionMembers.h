// SPDX-License-Identifier: MIT
#pragma once

#include <EnumType.h>
#include <kest_common_export.h>

#include <QVector>

/// The members of the enumerated launch options. A settings file holds their numbers.
namespace common_LaunchOptionMembers {

/// Of common_LaunchOptionNames::kestProcessPriority.
enum ProcessPriority {
    IdleProcessPriority = 0,
    LowProcessPriority = 1,
    NormalProcessPriority = 2,
    HighProcessPriority = 3,
    HighestProcessPriority = 4
};

/// Of common_LaunchOptionNames::kestRemoteExecutionMethod.
enum RemoteExecutionMethod {
    SshRshExecutionMethod = 0,
    MPIExecutionMethod = 1 ///< on Windows only
};

/// Of common_LaunchOptionNames::kestParallelAuthenticMethod.
enum ParallelAuthenticMethod {
    ParallelAuthenticMethodTypeSSPI = 1, ///< on Windows only; needs a domain
    ParallelAuthenticMethodTypeNone = 2, ///< for runs on this machine only
    ParallelAuthenticMethodTypeDefault = 3
};

/// Of common_LaunchOptionNames::amrkestErrorThreshold.
enum ErrorThreshold {
    HighErrorThreshold = 0, ///< fewer iterations
    NormalErrorThreshold = 1,
    LowErrorThreshold = 2 ///< more iterations
};

// The members with their texts for users and their keys, in the order of their numbers.
/// Of the option Kest.ProcessPriority.
KEST_COMMON_EXPORT QVector<EnumType> processPriorities();
/// Of the option Kest.RemoteExecutionMethod.
KEST_COMMON_EXPORT QVector<EnumType> remoteExecutionMethods();
/// Of the option Kest.ParallelAuthenticMethod.
KEST_COMMON_EXPORT QVector<EnumType> parallelAuthenticMethods();
/// Of the option Amrkest.ErrorThreshold.
KEST_COMMON_EXPORT QVector<EnumType> errorThresholds();

} // namespace common_LaunchOptionMembers
