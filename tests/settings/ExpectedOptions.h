// SPDX-License-Identifier: MIT
#pragma once

#include <common_ComponentsLaunchOptions.h>
#include <common_PropertyFactory.h>

#include <QSettings>

#include <algorithm>
#include <vector>

using Options = common_ComponentsLaunchOptions;

inline constexpr int boolean = 1;
inline constexpr int string = 2;

inline constexpr int integer = 3;

struct Member
{
    const char* key;
    int value;
    const char* text;
};

using Members = std::vector<Member>;

struct Option
{
    const char* key;
    int type;
    const char* label;
    int standard; // of booleans and integers; texts are empty
    int flags;
    Members members;
};

// clang-format off
inline const std::vector<Option>& options() // NOLINT(readability-function-size): a table
{
    static const Members priorities = {
        {"IdleProcessPriority", 0, "Idle"},
        {"LowProcessPriority", 1, "Low"},
        {"NormalProcessPriority", 2, "Normal"},
        {"HighProcessPriority", 3, "High"},
        {"HighestProcessPriority", 4, "Highest"},
    };
    static const Members executionMethods = {
        {"sshrshExecutionMethod", 0, "ssh/rsh (must be installed on remote and local machine)"},
        {"MPIExecutionMethod", 1, "MPI (Windows only)"},
    };
    static const Members authenticMethods = {
        {"ParallelAuthenticMethodTypeSSPI", 1, "Use SSPI (Active Directory) integration (Windows only, requires domain)"},
        {"ParallelAuthenticMethodTypeNone", 2, "Local run only (no authentication required)"},
        {"ParallelAuthenticMethodTypeDefault", 3, "Default (rsh/ssh for UNIX, PowerShell remoting for Windows)"},
    };
    static const Members thresholds = {
        {"HighErrorThreshold", 0, "High (fewer iterations and resources)"},
        {"NormalErrorThreshold", 1, "Normal (default)"},
        {"LowErrorThreshold", 2, "Low (more iterations and resources)"},
    };
    static const std::vector<Option> table = {
        {"Prekest.AdvancedOptions",              string,  "", 0, 3, {}},
        {"Kest.CheckGeometryOnly",               boolean, "", 0, 3, {}},
        {"Kest.ProcessPriority",                 integer, "Process priority", 2, 3, priorities},
        {"Kest.UseGPUforNVIDIA",                 boolean, "", 0, 3, {}},
        {"Kest.RemoteHost",                      string,  "", 0, 3, {}},
        {"Kest.RemoteExecutionMethod",           integer, "", 1, 3, executionMethods},
        {"Kest.SpecifyParallelProcesses",        boolean, "", 0, 3, {}},
        {"Prekest.ContinueWithErrors",           boolean, "", 0, 3, {}},
        {"Kest.NumberOfParallelProcesses",       integer, "", 1, 3, {}},
        {"Kest.UseSharedMemory",                 boolean, "", 0, 3, {}},
        {"Kest.ParallelEnvOptions",              integer, "", 0, 3, {}},
        {"Kest.ParallelAuthenticMethod",         integer, "Parallel authentication method", 1, 3, authenticMethods},
        {"Kest.AdvancedOptions",                 string,  "", 0, 3, {}},
        {"Adaptkest.RestartAnalysisNumber",      boolean, "", 0, 3, {}},
        {"Adaptkest.AnalysisNumber",             integer, "", 1, 3, {}},
        {"Adaptkest.DeleteTempFiles",            boolean, "", 1, 3, {}},
        {"Prekest.ExportVariablesToStdOut",      boolean, "", 0, 3, {}},
        {"Optkest.RestartFromSolverRun",         boolean, "", 0, 3, {}},
        {"Optkest.SolverRun",                    integer, "", 1, 3, {}},
        {"Optkest.DeleteAllFiles",               boolean, "", 0, 3, {}},
        {"Optkest.SpecifyNumberOfFarmProcesses", boolean, "", 1, 66, {}},
        {"Optkest.NumberOfFarmProcesses",        integer, "", 2, 3, {}},
        {"EnvironmentVariables",                 string,  "", 0, 3, {}},
        {"Kest.DisableGPUNote",                  boolean, "", 0, 3, {}},
        {"Kest.NumberOfGPUs",                    string,  "", 0, 3, {}},
        {"Kest.GPUsList",                        string,  "", 0, 3, {}},
        {"Prekest.ExportVariablesToOutFile",     boolean, "", 0, 3, {}},
        {"RunDetailsShown",                      boolean, "Show the details on the Kest Solver run dialog", 0, 3, {}},
        {"Kest.ExportSPICEMTLCircuitFiles",      boolean, "", 0, 3, {}},
        {"Amrkest.ErrorThreshold",               integer, "", 1, 3, thresholds},
        {"Amrkest.Frequency",                    string,  "", 0, 3, {}},
        {"Amrkest.MaximumIterations",            integer, "", 1, 3, {}},
        {"Amrkest.AdvancedOptions",              string,  "", 0, 3, {}},
        {"Amrkest.SpecifyFrequency",             boolean, "", 0, 3, {}},
        {"Amrkest.SpecifyMaximumIterations",     boolean, "", 0, 3, {}},
        {"Amrkest.DeleteTempFiles",              boolean, "", 1, 3, {}},
        {"Amrkest.SkipFinalSolve",               boolean, "", 0, 3, {}},
        {"RunParallel",                          boolean, "Run the parallel Kest Solver", 0, 3, {}},
        {"FarmOut",                              boolean, "Run the farming out Kest Solver", 0, 3, {}},
        {"RunRemote",                            boolean, "Run the Kest Solver on a remote machine", 0, 3, {}},
        {"Timekest.DeleteTempFiles",             boolean, "", 0, 64, {}},
    };
    return table;
}
// clang-format on

// clang-format off
inline QStringList listOf(const std::vector<const char*>& texts)
{
    QStringList list;
    for (const char* text : texts) {
        list.append(QLatin1String(text));
    }
    return list;
}
// clang-format on

// clang-format off
inline QStringList keysInOrderOfWriting()
{
    return listOf({
        "Prekest.ContinueWithErrors", "Prekest.ExportVariablesToStdOut",
        "Prekest.ExportVariablesToOutFile", "Prekest.AdvancedOptions", "Kest.CheckGeometryOnly",
        "Kest.ExportSPICEMTLCircuitFiles", "Kest.ProcessPriority", "Kest.UseGPUforNVIDIA",
        "Kest.DisableGPUNote", "Kest.NumberOfGPUs", "Kest.GPUsList", "Kest.RemoteHost",
        "Kest.RemoteExecutionMethod", "Kest.SpecifyParallelProcesses",
        "Kest.NumberOfParallelProcesses", "Kest.UseSharedMemory", "Kest.ParallelEnvOptions",
        "Kest.ParallelAuthenticMethod", "Kest.AdvancedOptions", "Adaptkest.RestartAnalysisNumber",
        "Adaptkest.AnalysisNumber", "Adaptkest.DeleteTempFiles", "Optkest.RestartFromSolverRun",
        "Optkest.SolverRun", "Optkest.DeleteAllFiles", "Optkest.NumberOfFarmProcesses",
        "Amrkest.ErrorThreshold", "Amrkest.SpecifyFrequency", "Amrkest.DeleteTempFiles",
        "Amrkest.SkipFinalSolve", "Amrkest.Frequency", "Amrkest.SpecifyMaximumIterations",
        "Amrkest.MaximumIterations", "Amrkest.AdvancedOptions", "EnvironmentVariables", "RunRemote",
        "RunParallel", "FarmOut", "RunDetailsShown",
    });
}
// clang-format on

inline QString idleKey()
{
    return QStringLiteral("Timekest.DeleteTempFiles");
}

inline QString farmKey()
{
    return QStringLiteral("Optkest.NumberOfFarmProcesses");
}

inline QString priorityKey()
{
    return QStringLiteral("Kest.ProcessPriority");
}

inline QString keyOf(const Option& option)
{
    return QLatin1String(option.key);
}

inline const Option& optionOf(const QString& key)
{
    return *std::find_if(options().cbegin(), options().cend(),
                         [&key](const Option& option) { return keyOf(option) == key; });
}

inline QVariant standardOf(const Option& option)
{
    switch (option.type) {
    case boolean:
        return option.standard != 0;
    case integer:
        return option.standard;
    default:
        return QString();
    }
}

inline QVariant otherThanStandard(const Option& option)
{
    switch (option.type) {
    case boolean:
        return option.standard == 0;
    case integer:
        return option.standard + 2;
    default:
        return QStringLiteral("text of %1").arg(keyOf(option));
    }
}

inline QVariant valueOf(const common_PropertyContainer& container, const Option& option)
{
    const common_Property property = container[keyOf(option)];
    switch (option.type) {
    case boolean:
        return property.castToBool();
    case integer:
        return property.castToInt();
    default:
        return property.castToQString();
    }
}

inline QVariant valueOf(const common_PropertyContainer& container, const QString& key)
{
    return valueOf(container, optionOf(key));
}

inline void assign(common_PropertyContainer& container, const QString& key, const QVariant& value)
{
    common_PropertyReference property = container[key];
    switch (optionOf(key).type) {
    case boolean:
        property.assignFromBool(value.toBool());
        break;
    case integer:
        property.assignFromInt(value.toInt());
        break;
    default:
        property.assignFromQString(value.toString());
        break;
    }
}

/// The options that do not have their default, as "key=value".
inline QStringList unusualValues(const common_PropertyContainer& container)
{
    QStringList unusual;
    for (const Option& option : options()) {
        const QVariant value = valueOf(container, option);
        if (value != standardOf(option)) {
            unusual.append(keyOf(option) + QLatin1Char('=') + value.toString());
        }
    }
    return unusual;
}

inline QByteArray optionsGroup(const QString& key, const QString& storedText)
{
    return QStringLiteral("[options]\n%1=%2\n").arg(key, storedText).toUtf8();
}

inline QStringList keysInFile(const QString& path)
{
    QSettings settings(path, QSettings::IniFormat);
    settings.beginGroup(QStringLiteral("options"));
    return settings.allKeys();
}
