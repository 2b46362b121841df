// SPDX-License-Identifier: MIT
#pragma once

#include <kest_common_export.h>

#include <QStringList>

/// The names of the launch options' properties, which are also their keys in the group "options" of
/// kest.ini. Behind each name: its type and its default while no file has another one. Members are
/// in common_LaunchOptionMembers.
///
///     const bool parallel = (*options)[QLatin1String(common_LaunchOptionNames::runParallel)]
///                               .castToBool();
///
/// An integer is read by castToInt() and assigned by assignFromInt(), a text by castToQString() and
/// assignFromQString(). No value is checked.
namespace common_LaunchOptionNames {

// clang-format off
constexpr const char* prekestAdvancedOptions              = "Prekest.AdvancedOptions";              ///< text, empty
constexpr const char* kestCheckGeometryOnly               = "Kest.CheckGeometryOnly";               ///< boolean, false
constexpr const char* kestProcessPriority                 = "Kest.ProcessPriority";                 ///< integer, 2, a member of ProcessPriority
constexpr const char* kestUseGPUforNVIDIA                 = "Kest.UseGPUforNVIDIA";                 ///< boolean, false
constexpr const char* kestRemoteHost                      = "Kest.RemoteHost";                      ///< text, empty
constexpr const char* kestRemoteExecutionMethod           = "Kest.RemoteExecutionMethod";           ///< integer, 1, a member of RemoteExecutionMethod
constexpr const char* kestSpecifyParallelProcesses        = "Kest.SpecifyParallelProcesses";        ///< boolean, false
constexpr const char* prekestContinueWithErrors           = "Prekest.ContinueWithErrors";           ///< boolean, false
constexpr const char* kestNumberOfParallelProcesses       = "Kest.NumberOfParallelProcesses";       ///< integer, 1
constexpr const char* kestUseSharedMemory                 = "Kest.UseSharedMemory";                 ///< boolean, false
constexpr const char* kestParallelEnvOptions              = "Kest.ParallelEnvOptions";              ///< integer, 0
constexpr const char* kestParallelAuthenticMethod         = "Kest.ParallelAuthenticMethod";         ///< integer, 1, a member of ParallelAuthenticMethod
constexpr const char* kestAdvancedOptions                 = "Kest.AdvancedOptions";                 ///< text, empty
constexpr const char* adaptkestRestartAnalysisNumber      = "Adaptkest.RestartAnalysisNumber";      ///< boolean, false
constexpr const char* adaptkestAnalysisNumber             = "Adaptkest.AnalysisNumber";             ///< integer, 1
constexpr const char* adaptkestDeleteTempFiles            = "Adaptkest.DeleteTempFiles";            ///< boolean, true
constexpr const char* prekestExportVariablesToStdOut      = "Prekest.ExportVariablesToStdOut";      ///< boolean, false
constexpr const char* optkestRestartFromSolverRun         = "Optkest.RestartFromSolverRun";         ///< boolean, false
constexpr const char* optkestSolverRun                    = "Optkest.SolverRun";                    ///< integer, 1
constexpr const char* optkestDeleteAllFiles               = "Optkest.DeleteAllFiles";               ///< boolean, false
constexpr const char* optkestSpecifyNumberOfFarmProcesses = "Optkest.SpecifyNumberOfFarmProcesses"; ///< boolean, true, not kept in the file
constexpr const char* optkestNumberOfFarmProcesses        = "Optkest.NumberOfFarmProcesses";        ///< integer, 2, at least 2
constexpr const char* environmentVariables                = "EnvironmentVariables";                 ///< text, empty
constexpr const char* kestDisableGPUNote                  = "Kest.DisableGPUNote";                  ///< boolean, false
constexpr const char* kestNumberOfGPUs                    = "Kest.NumberOfGPUs";                    ///< text, empty
constexpr const char* kestGPUsList                        = "Kest.GPUsList";                        ///< text, empty
constexpr const char* prekestExportVariablesToOutFile     = "Prekest.ExportVariablesToOutFile";     ///< boolean, false
constexpr const char* runDetailsShown                     = "RunDetailsShown";                      ///< boolean, false
constexpr const char* kestExportSPICEMTLCircuitFiles      = "Kest.ExportSPICEMTLCircuitFiles";      ///< boolean, false
constexpr const char* amrkestErrorThreshold               = "Amrkest.ErrorThreshold";               ///< integer, 1, a member of ErrorThreshold
constexpr const char* amrkestFrequency                    = "Amrkest.Frequency";                    ///< text, empty
constexpr const char* amrkestMaximumIterations            = "Amrkest.MaximumIterations";            ///< integer, 1
constexpr const char* amrkestAdvancedOptions              = "Amrkest.AdvancedOptions";              ///< text, empty
constexpr const char* amrkestSpecifyFrequency             = "Amrkest.SpecifyFrequency";             ///< boolean, false
constexpr const char* amrkestSpecifyMaximumIterations     = "Amrkest.SpecifyMaximumIterations";     ///< boolean, false
constexpr const char* amrkestDeleteTempFiles              = "Amrkest.DeleteTempFiles";              ///< boolean, true
constexpr const char* amrkestSkipFinalSolve               = "Amrkest.SkipFinalSolve";               ///< boolean, false
constexpr const char* runParallel                         = "RunParallel";                          ///< boolean, false
constexpr const char* farmOut                             = "FarmOut";                              ///< boolean, false
constexpr const char* runRemote                           = "RunRemote";                            ///< boolean, false
constexpr const char* timekestDeleteTempFiles             = "Timekest.DeleteTempFiles";             ///< boolean, false, not kept in the file
// clang-format on

/// All of them, in this order.
KEST_COMMON_EXPORT QStringList all();

} // namespace common_LaunchOptionNames
