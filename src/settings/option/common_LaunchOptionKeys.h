#pragma once

/// The names of the launch options' properties, which are also their keys in the settings file, in
/// the order of registration.
namespace common_LaunchOptionKeys {

// clang-format off
constexpr const char* prekestAdvancedOptions              = "Prekest.AdvancedOptions";
constexpr const char* kestCheckGeometryOnly               = "Kest.CheckGeometryOnly";
constexpr const char* kestProcessPriority                 = "Kest.ProcessPriority";
constexpr const char* kestUseGPUforNVIDIA                 = "Kest.UseGPUforNVIDIA";
constexpr const char* kestRemoteHost                      = "Kest.RemoteHost";
constexpr const char* kestRemoteExecutionMethod           = "Kest.RemoteExecutionMethod";
constexpr const char* kestSpecifyParallelProcesses        = "Kest.SpecifyParallelProcesses";
constexpr const char* prekestContinueWithErrors           = "Prekest.ContinueWithErrors";
constexpr const char* kestNumberOfParallelProcesses       = "Kest.NumberOfParallelProcesses";
constexpr const char* kestUseSharedMemory                 = "Kest.UseSharedMemory";
constexpr const char* kestParallelEnvOptions              = "Kest.ParallelEnvOptions";
constexpr const char* kestParallelAuthenticMethod         = "Kest.ParallelAuthenticMethod";
constexpr const char* kestAdvancedOptions                 = "Kest.AdvancedOptions";
constexpr const char* adaptkestRestartAnalysisNumber      = "Adaptkest.RestartAnalysisNumber";
constexpr const char* adaptkestAnalysisNumber             = "Adaptkest.AnalysisNumber";
constexpr const char* adaptkestDeleteTempFiles            = "Adaptkest.DeleteTempFiles";
constexpr const char* prekestExportVariablesToStdOut      = "Prekest.ExportVariablesToStdOut";
constexpr const char* optkestRestartFromSolverRun         = "Optkest.RestartFromSolverRun";
constexpr const char* optkestSolverRun                    = "Optkest.SolverRun";
constexpr const char* optkestDeleteAllFiles               = "Optkest.DeleteAllFiles";
constexpr const char* optkestSpecifyNumberOfFarmProcesses = "Optkest.SpecifyNumberOfFarmProcesses";
constexpr const char* optkestNumberOfFarmProcesses        = "Optkest.NumberOfFarmProcesses";
constexpr const char* environmentVariables                = "EnvironmentVariables";
constexpr const char* kestDisableGPUNote                  = "Kest.DisableGPUNote";
constexpr const char* kestNumberOfGPUs                    = "Kest.NumberOfGPUs";
constexpr const char* kestGPUsList                        = "Kest.GPUsList";
constexpr const char* prekestExportVariablesToOutFile     = "Prekest.ExportVariablesToOutFile";
constexpr const char* runDetailsShown                     = "RunDetailsShown";
constexpr const char* kestExportSPICEMTLCircuitFiles      = "Kest.ExportSPICEMTLCircuitFiles";
constexpr const char* amrkestErrorThreshold               = "Amrkest.ErrorThreshold";
constexpr const char* amrkestFrequency                    = "Amrkest.Frequency";
constexpr const char* amrkestMaximumIterations            = "Amrkest.MaximumIterations";
constexpr const char* amrkestAdvancedOptions              = "Amrkest.AdvancedOptions";
constexpr const char* amrkestSpecifyFrequency             = "Amrkest.SpecifyFrequency";
constexpr const char* amrkestSpecifyMaximumIterations     = "Amrkest.SpecifyMaximumIterations";
constexpr const char* amrkestDeleteTempFiles              = "Amrkest.DeleteTempFiles";
constexpr const char* amrkestSkipFinalSolve               = "Amrkest.SkipFinalSolve";
constexpr const char* runParallel                         = "RunParallel";
constexpr const char* farmOut                             = "FarmOut";
constexpr const char* runRemote                           = "RunRemote";
constexpr const char* timekestDeleteTempFiles             = "Timekest.DeleteTempFiles";
// clang-format on

} // namespace common_LaunchOptionKeys
