// SPDX-License-Identifier: MIT
#pragma once

#include <common_ComponentsLaunchOptions.h>
#include <common_PropertyFactory.h>

#include <vector>

using Options = common_ComponentsLaunchOptions;

/// A property's key and the value it is given.
struct Assignment
{
    Assignment(const char* propertyKey, bool boolean) : key(propertyKey), value(boolean) {}
    Assignment(const char* propertyKey, int integer) : key(propertyKey), value(integer) {}
    Assignment(const char* propertyKey, const char* text)
        : key(propertyKey), value(QString::fromUtf8(text))
    {}

    const char* key;
    QVariant value;
};

using Assignments = std::vector<Assignment>;

inline void assign(Options& options, const Assignments& assignments)
{
    for (const Assignment& assignment : assignments) {
        common_PropertyReference property = options[QLatin1String(assignment.key)];
        switch (int(assignment.value.type())) {
        case QMetaType::Bool:
            property.assignFromBool(assignment.value.toBool());
            break;
        case QMetaType::Int:
            property.assignFromInt(assignment.value.toInt());
            break;
        default:
            property.assignFromQString(assignment.value.toString());
            break;
        }
    }
}

/// What can be asked of the options.
enum Getter {
    Prekest,
    Sequential,
    SequentialRemote,
    Parallel,
    ParallelRemote,
    Remote,
    Adaptkest,
    Optkest,
    Amrkest,
    Environment,
    LocalOnly,
    HostSpecified
};

inline constexpr int getterCount = HostSpecified + 1;

inline QStringList answer(bool yes)
{
    return {yes ? QStringLiteral("yes") : QStringLiteral("no")};
}

inline QStringList listFrom(const Options& options, int getter)
{
    switch (getter) {
    case Prekest:
        return options.getPrekestOptions();
    case Sequential:
        return options.getKestSequentialOptions(false);
    case SequentialRemote:
        return options.getKestSequentialOptions(true);
    case Parallel:
        return options.getKestParallelOptions(false);
    case ParallelRemote:
        return options.getKestParallelOptions(true);
    case Remote:
        return options.getKestRemoteOptions();
    case Adaptkest:
        return options.getAdaptkestOptions();
    case Optkest:
        return options.getOptkestOptions();
    case Amrkest:
        return options.getAmrkestOptions();
    case Environment:
        return options.getEnvironmentOptions();
    case LocalOnly:
        return answer(options.isLocalOnlySpecified());
    default:
        return answer(options.isRemoteHostArgumentSpecified());
    }
}

inline const char* const prekestErrors = "Prekest.ContinueWithErrors";

inline const char* const prekestFree = "Prekest.AdvancedOptions";

inline const char* const prekestStdOut = "Prekest.ExportVariablesToStdOut";

inline const char* const prekestOut = "Prekest.ExportVariablesToOutFile";

inline const char* const priority = "Kest.ProcessPriority";

inline const char* const gpuUse = "Kest.UseGPUforNVIDIA";

inline const char* const gpuNote = "Kest.DisableGPUNote";

inline const char* const gpuCount = "Kest.NumberOfGPUs";

inline const char* const gpuList = "Kest.GPUsList";

inline const char* const host = "Kest.RemoteHost";

inline const char* const method = "Kest.RemoteExecutionMethod";

inline const char* const specifyParallel = "Kest.SpecifyParallelProcesses";

inline const char* const parallelCount = "Kest.NumberOfParallelProcesses";

inline const char* const statistics = "Kest.ParallelEnvOptions";

inline const char* const authentication = "Kest.ParallelAuthenticMethod";

inline const char* const kestFree = "Kest.AdvancedOptions";

inline const char* const checkOnly = "Kest.CheckGeometryOnly";

inline const char* const circuitFiles = "Kest.ExportSPICEMTLCircuitFiles";

inline const char* const adaptRestart = "Adaptkest.RestartAnalysisNumber";

inline const char* const adaptNumber = "Adaptkest.AnalysisNumber";

inline const char* const adaptDelete = "Adaptkest.DeleteTempFiles";

inline const char* const optRestart = "Optkest.RestartFromSolverRun";

inline const char* const optRun = "Optkest.SolverRun";

inline const char* const optDelete = "Optkest.DeleteAllFiles";

inline const char* const optSpecify = "Optkest.SpecifyNumberOfFarmProcesses";

inline const char* const optCount = "Optkest.NumberOfFarmProcesses";

inline const char* const amrThreshold = "Amrkest.ErrorThreshold";

inline const char* const amrSpecifyFrequency = "Amrkest.SpecifyFrequency";

inline const char* const amrFrequency = "Amrkest.Frequency";

inline const char* const amrSpecifyIterations = "Amrkest.SpecifyMaximumIterations";

inline const char* const amrIterations = "Amrkest.MaximumIterations";

inline const char* const amrDelete = "Amrkest.DeleteTempFiles";

inline const char* const amrSkip = "Amrkest.SkipFinalSolve";

inline const char* const amrFree = "Amrkest.AdvancedOptions";

inline const char* const variables = "EnvironmentVariables";

// clang-format off
/// Options of which every one but the note about the GPU shows.
inline Assignments everything()
{
    return {{priority, 4}, {gpuUse, true}, {gpuCount, "2"}, {gpuList, "0,1"}, {host, "node7"}, {method, 1}, {kestFree, "--foo bar"}, {checkOnly, true}, {circuitFiles, true},
            {specifyParallel, true}, {parallelCount, 12}, {authentication, 1}, {prekestErrors, true}, {prekestFree, "-a"}, {prekestStdOut, true}, {prekestOut, true},
            {adaptRestart, true}, {adaptNumber, 3}, {adaptDelete, false}, {optRestart, true}, {optRun, 3}, {optDelete, true}, {optCount, 4}, {amrThreshold, 0}, {amrSpecifyFrequency, true},
            {amrFrequency, "1e9"}, {amrSpecifyIterations, true}, {amrIterations, 5}, {amrDelete, false}, {amrSkip, true}, {amrFree, "-x"}, {variables, "A=1"}, {statistics, 1},
            {"RunParallel", true}, {"FarmOut", true}, {"RunRemote", true}};
}
// clang-format on

inline std::vector<QStringList> allLists(const Options& options)
{
    std::vector<QStringList> lists;
    lists.reserve(getterCount);
    for (int getter = 0; getter < getterCount; ++getter) {
        lists.push_back(listFrom(options, getter));
    }
    return lists;
}
