#include "common_LaunchOptionTable.h"

#include <common_PropertyFactory.h>

#include <algorithm>

namespace {

// clang-format off
QVector<EnumType> processPriorities()
{
    return {
        {QStringLiteral("Idle"), 0, QStringLiteral("IdleProcessPriority")},
        {QStringLiteral("Low"), 1, QStringLiteral("LowProcessPriority")},
        {QStringLiteral("Normal"), 2, QStringLiteral("NormalProcessPriority")},
        {QStringLiteral("High"), 3, QStringLiteral("HighProcessPriority")},
        {QStringLiteral("Highest"), 4, QStringLiteral("HighestProcessPriority")},
    };
}

QVector<EnumType> remoteExecutionMethods()
{
    return {
        {QStringLiteral("ssh/rsh (must be installed on remote and local machine)"), 0, QStringLiteral("sshrshExecutionMethod")},
        {QStringLiteral("MPI (Windows only)"), 1, QStringLiteral("MPIExecutionMethod")},
    };
}

QVector<EnumType> parallelAuthenticMethods()
{
    return {
        {QStringLiteral("Use SSPI (Active Directory) integration (Windows only, requires domain)"), 1, QStringLiteral("ParallelAuthenticMethodTypeSSPI")},
        {QStringLiteral("Local run only (no authentication required)"), 2, QStringLiteral("ParallelAuthenticMethodTypeNone")},
        {QStringLiteral("Default (rsh/ssh for UNIX, PowerShell remoting for Windows)"), 3, QStringLiteral("ParallelAuthenticMethodTypeDefault")},
    };
}

QVector<EnumType> errorThresholds()
{
    return {
        {QStringLiteral("High (fewer iterations and resources)"), 0, QStringLiteral("HighErrorThreshold")},
        {QStringLiteral("Normal (default)"), 1, QStringLiteral("NormalErrorThreshold")},
        {QStringLiteral("Low (more iterations and resources)"), 2, QStringLiteral("LowErrorThreshold")},
    };
}

QVector<common_LaunchOption> optionTable()
{
    constexpr auto Boolean = common_PropertyMetaData::Boolean;
    constexpr auto String = common_PropertyMetaData::String;
    constexpr auto Integer = common_PropertyMetaData::Integer;
    return {
        // key, type, label, default, flags, persisted, members
        {"Prekest.AdvancedOptions",              String,  "",                                               0,     3,  true,  {}},
        {"Kest.CheckGeometryOnly",               Boolean, "",                                               false, 3,  true,  {}},
        {"Kest.ProcessPriority",                 Integer, "Process priority",                               2,     3,  true,  processPriorities()},
        {"Kest.UseGPUforNVIDIA",                 Boolean, "",                                               false, 3,  true,  {}},
        {"Kest.RemoteHost",                      String,  "",                                               0,     3,  true,  {}},
        {"Kest.RemoteExecutionMethod",           Integer, "",                                               1,     3,  true,  remoteExecutionMethods()},
        {"Kest.SpecifyParallelProcesses",        Boolean, "",                                               false, 3,  true,  {}},
        {"Prekest.ContinueWithErrors",           Boolean, "",                                               false, 3,  true,  {}},
        {"Kest.NumberOfParallelProcesses",       Integer, "",                                               1,     3,  true,  {}},
        {"Kest.UseSharedMemory",                 Boolean, "",                                               false, 3,  true,  {}},
        {"Kest.ParallelEnvOptions",              Integer, "",                                               0,     3,  true,  {}},
        {"Kest.ParallelAuthenticMethod",         Integer, "Parallel authentication method",                 1,     3,  true,  parallelAuthenticMethods()},
        {"Kest.AdvancedOptions",                 String,  "",                                               0,     3,  true,  {}},
        {"Adaptkest.RestartAnalysisNumber",      Boolean, "",                                               false, 3,  true,  {}},
        {"Adaptkest.AnalysisNumber",             Integer, "",                                               1,     3,  true,  {}},
        {"Adaptkest.DeleteTempFiles",            Boolean, "",                                               true,  3,  true,  {}},
        {"Prekest.ExportVariablesToStdOut",      Boolean, "",                                               false, 3,  true,  {}},
        {"Optkest.RestartFromSolverRun",         Boolean, "",                                               false, 3,  true,  {}},
        {"Optkest.SolverRun",                    Integer, "",                                               1,     3,  true,  {}},
        {"Optkest.DeleteAllFiles",               Boolean, "",                                               false, 3,  true,  {}},
        {"Optkest.SpecifyNumberOfFarmProcesses", Boolean, "",                                               true,  66, false, {}},
        {"Optkest.NumberOfFarmProcesses",        Integer, "",                                               2,     3,  true,  {}},
        {"EnvironmentVariables",                 String,  "",                                               0,     3,  true,  {}},
        {"Kest.DisableGPUNote",                  Boolean, "",                                               false, 3,  true,  {}},
        {"Kest.NumberOfGPUs",                    String,  "",                                               0,     3,  true,  {}},
        {"Kest.GPUsList",                        String,  "",                                               0,     3,  true,  {}},
        {"Prekest.ExportVariablesToOutFile",     Boolean, "",                                               false, 3,  true,  {}},
        {"RunDetailsShown",                      Boolean, "Show the details on the Kest Solver run dialog", false, 3,  true,  {}},
        {"Kest.ExportSPICEMTLCircuitFiles",      Boolean, "",                                               false, 3,  true,  {}},
        {"Amrkest.ErrorThreshold",               Integer, "",                                               1,     3,  true,  errorThresholds()},
        {"Amrkest.Frequency",                    String,  "",                                               0,     3,  true,  {}},
        {"Amrkest.MaximumIterations",            Integer, "",                                               1,     3,  true,  {}},
        {"Amrkest.AdvancedOptions",              String,  "",                                               0,     3,  true,  {}},
        {"Amrkest.SpecifyFrequency",             Boolean, "",                                               false, 3,  true,  {}},
        {"Amrkest.SpecifyMaximumIterations",     Boolean, "",                                               false, 3,  true,  {}},
        {"Amrkest.DeleteTempFiles",              Boolean, "",                                               true,  3,  true,  {}},
        {"Amrkest.SkipFinalSolve",               Boolean, "",                                               false, 3,  true,  {}},
        {"RunParallel",                          Boolean, "Run the parallel Kest Solver",                   false, 3,  true,  {}},
        {"FarmOut",                              Boolean, "Run the farming out Kest Solver",                false, 3,  true,  {}},
        {"RunRemote",                            Boolean, "Run the Kest Solver on a remote machine",        false, 3,  true,  {}},
        {"Timekest.DeleteTempFiles",             Boolean, "",                                               false, 64, false, {}},
    };
}

QStringList writtenKeys()
{
    return {
        QStringLiteral("Prekest.ContinueWithErrors"),
        QStringLiteral("Prekest.ExportVariablesToStdOut"),
        QStringLiteral("Prekest.ExportVariablesToOutFile"),
        QStringLiteral("Prekest.AdvancedOptions"),
        QStringLiteral("Kest.CheckGeometryOnly"),
        QStringLiteral("Kest.ExportSPICEMTLCircuitFiles"),
        QStringLiteral("Kest.ProcessPriority"),
        QStringLiteral("Kest.UseGPUforNVIDIA"),
        QStringLiteral("Kest.DisableGPUNote"),
        QStringLiteral("Kest.NumberOfGPUs"),
        QStringLiteral("Kest.GPUsList"),
        QStringLiteral("Kest.RemoteHost"),
        QStringLiteral("Kest.RemoteExecutionMethod"),
        QStringLiteral("Kest.SpecifyParallelProcesses"),
        QStringLiteral("Kest.NumberOfParallelProcesses"),
        QStringLiteral("Kest.UseSharedMemory"),
        QStringLiteral("Kest.ParallelEnvOptions"),
        QStringLiteral("Kest.ParallelAuthenticMethod"),
        QStringLiteral("Kest.AdvancedOptions"),
        QStringLiteral("Adaptkest.RestartAnalysisNumber"),
        QStringLiteral("Adaptkest.AnalysisNumber"),
        QStringLiteral("Adaptkest.DeleteTempFiles"),
        QStringLiteral("Optkest.RestartFromSolverRun"),
        QStringLiteral("Optkest.SolverRun"),
        QStringLiteral("Optkest.DeleteAllFiles"),
        QStringLiteral("Optkest.NumberOfFarmProcesses"),
        QStringLiteral("Amrkest.ErrorThreshold"),
        QStringLiteral("Amrkest.SpecifyFrequency"),
        QStringLiteral("Amrkest.DeleteTempFiles"),
        QStringLiteral("Amrkest.SkipFinalSolve"),
        QStringLiteral("Amrkest.Frequency"),
        QStringLiteral("Amrkest.SpecifyMaximumIterations"),
        QStringLiteral("Amrkest.MaximumIterations"),
        QStringLiteral("Amrkest.AdvancedOptions"),
        QStringLiteral("EnvironmentVariables"),
        QStringLiteral("RunRemote"),
        QStringLiteral("RunParallel"),
        QStringLiteral("FarmOut"),
        QStringLiteral("RunDetailsShown"),
    };
}
// clang-format on

// Read later than it is written, and everything else in the same order.
QStringList readKeys()
{
    const QString readLater = QStringLiteral("Optkest.NumberOfFarmProcesses");
    const QString readBehind = QStringLiteral("Amrkest.AdvancedOptions");
    QStringList keys = writtenKeys();
    keys.removeOne(readLater);
    keys.insert(keys.indexOf(readBehind) + 1, readLater);
    return keys;
}

void registerOption(const common_LaunchOption& option)
{
    const QString name = QString::fromLatin1(option.key);
    common_PropertyFactory::addMetaData(
        name, common_PropertyMetaData(name, QString::fromLatin1(option.label), option.type,
                                      common_PropertyMetaData::Single, option.flags));
    for (const EnumType& member : option.members) {
        common_PropertyMetaData& metaData = common_PropertyFactory::getMetaData(name);
        metaData.setEnumerated(metaData.getEnumList() << member);
    }
}

} // namespace

const QVector<common_LaunchOption>& common_LaunchOptionTable::options()
{
    static const QVector<common_LaunchOption> table = optionTable();
    return table;
}

const common_LaunchOption& common_LaunchOptionTable::option(const QString& key)
{
    return *std::find_if(
        options().cbegin(), options().cend(),
        [&key](const common_LaunchOption& row) { return QLatin1String(row.key) == key; });
}

const QStringList& common_LaunchOptionTable::writeOrder()
{
    static const QStringList keys = writtenKeys();
    return keys;
}

const QStringList& common_LaunchOptionTable::readOrder()
{
    static const QStringList keys = readKeys();
    return keys;
}

void common_LaunchOptionTable::registerOptions()
{
    std::for_each(options().cbegin(), options().cend(), registerOption);
}
