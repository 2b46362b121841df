// SPDX-License-Identifier: MIT
#include "common_LaunchOptionTable.h"

#include <common_LaunchOptionMembers.h>
#include <common_LaunchOptionNames.h>
#include <common_PropertyFactory.h>

#include <algorithm>

namespace {

// clang-format off
QVector<common_LaunchOption> optionTable()
{
    namespace keys = common_LaunchOptionNames;
    namespace members = common_LaunchOptionMembers;
    constexpr auto Boolean = common_PropertyMetaData::Boolean;
    constexpr auto String = common_PropertyMetaData::String;
    constexpr auto Integer = common_PropertyMetaData::Integer;
    constexpr int kept = common_PropertyMetaData::Persistent | common_PropertyMetaData::Assigned;
    constexpr int fixed = common_PropertyMetaData::Transient | common_PropertyMetaData::Assigned;
    constexpr int unused = common_PropertyMetaData::Transient;
    return {
        // key, type, label, default, flags, position in writing, in reading, members[, smallest]
        {keys::prekestAdvancedOptions,              String,  "",                                               0,     kept,    4,  4, {}},
        {keys::kestCheckGeometryOnly,               Boolean, "",                                               false, kept,    5,  5, {}},
        {keys::kestProcessPriority,                 Integer, "Process priority",                               2,     kept,    7,  7, members::processPriorities()},
        {keys::kestUseGPUforNVIDIA,                 Boolean, "",                                               false, kept,    8,  8, {}},
        {keys::kestRemoteHost,                      String,  "",                                               0,     kept,   12, 12, {}},
        {keys::kestRemoteExecutionMethod,           Integer, "",                                               1,     kept,   13, 13, members::remoteExecutionMethods()},
        {keys::kestSpecifyParallelProcesses,        Boolean, "",                                               false, kept,   14, 14, {}},
        {keys::prekestContinueWithErrors,           Boolean, "",                                               false, kept,    1,  1, {}},
        {keys::kestNumberOfParallelProcesses,       Integer, "",                                               1,     kept,   15, 15, {}},
        {keys::kestUseSharedMemory,                 Boolean, "",                                               false, kept,   16, 16, {}},
        {keys::kestParallelEnvOptions,              Integer, "",                                               0,     kept,   17, 17, {}},
        {keys::kestParallelAuthenticMethod,         Integer, "Parallel authentication method",                 1,     kept,   18, 18, members::parallelAuthenticMethods()},
        {keys::kestAdvancedOptions,                 String,  "",                                               0,     kept,   19, 19, {}},
        {keys::adaptkestRestartAnalysisNumber,      Boolean, "",                                               false, kept,   20, 20, {}},
        {keys::adaptkestAnalysisNumber,             Integer, "",                                               1,     kept,   21, 21, {}},
        {keys::adaptkestDeleteTempFiles,            Boolean, "",                                               true,  kept,   22, 22, {}},
        {keys::prekestExportVariablesToStdOut,      Boolean, "",                                               false, kept,    2,  2, {}},
        {keys::optkestRestartFromSolverRun,         Boolean, "",                                               false, kept,   23, 23, {}},
        {keys::optkestSolverRun,                    Integer, "",                                               1,     kept,   24, 24, {}},
        {keys::optkestDeleteAllFiles,               Boolean, "",                                               false, kept,   25, 25, {}},
        {keys::optkestSpecifyNumberOfFarmProcesses, Boolean, "",                                               true,  fixed,   0,  0, {}},
        {keys::optkestNumberOfFarmProcesses,        Integer, "",                                               2,     kept,   26, 34, {}, 2},
        {keys::environmentVariables,                String,  "",                                               0,     kept,   35, 35, {}},
        {keys::kestDisableGPUNote,                  Boolean, "",                                               false, kept,    9,  9, {}},
        {keys::kestNumberOfGPUs,                    String,  "",                                               0,     kept,   10, 10, {}},
        {keys::kestGPUsList,                        String,  "",                                               0,     kept,   11, 11, {}},
        {keys::prekestExportVariablesToOutFile,     Boolean, "",                                               false, kept,    3,  3, {}},
        {keys::runDetailsShown,                     Boolean, "Show the details on the Kest Solver run dialog", false, kept,   39, 39, {}},
        {keys::kestExportSPICEMTLCircuitFiles,      Boolean, "",                                               false, kept,    6,  6, {}},
        {keys::amrkestErrorThreshold,               Integer, "",                                               1,     kept,   27, 26, members::errorThresholds()},
        {keys::amrkestFrequency,                    String,  "",                                               0,     kept,   31, 30, {}},
        {keys::amrkestMaximumIterations,            Integer, "",                                               1,     kept,   33, 32, {}},
        {keys::amrkestAdvancedOptions,              String,  "",                                               0,     kept,   34, 33, {}},
        {keys::amrkestSpecifyFrequency,             Boolean, "",                                               false, kept,   28, 27, {}},
        {keys::amrkestSpecifyMaximumIterations,     Boolean, "",                                               false, kept,   32, 31, {}},
        {keys::amrkestDeleteTempFiles,              Boolean, "",                                               true,  kept,   29, 28, {}},
        {keys::amrkestSkipFinalSolve,               Boolean, "",                                               false, kept,   30, 29, {}},
        {keys::runParallel,                         Boolean, "Run the parallel Kest Solver",                   false, kept,   37, 37, {}},
        {keys::farmOut,                             Boolean, "Run the farming out Kest Solver",                false, kept,   38, 38, {}},
        {keys::runRemote,                           Boolean, "Run the Kest Solver on a remote machine",        false, kept,   36, 36, {}},
        {keys::timekestDeleteTempFiles,             Boolean, "",                                               false, unused,  0,  0, {}},
    };
}
// clang-format on

QVector<const common_LaunchOption*> inOrderOf(int common_LaunchOption::*position)
{
    QVector<const common_LaunchOption*> sorted;
    for (const common_LaunchOption& option : common_LaunchOptionTable::options()) {
        if (option.*position > 0) {
            sorted.append(&option);
        }
    }
    std::sort(sorted.begin(), sorted.end(),
              [position](const common_LaunchOption* left, const common_LaunchOption* right) {
                  return left->*position < right->*position;
              });
    return sorted;
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

const QVector<const common_LaunchOption*>& common_LaunchOptionTable::writeOrder()
{
    static const QVector<const common_LaunchOption*> order =
        inOrderOf(&common_LaunchOption::writePosition);
    return order;
}

const QVector<const common_LaunchOption*>& common_LaunchOptionTable::readOrder()
{
    static const QVector<const common_LaunchOption*> order =
        inOrderOf(&common_LaunchOption::readPosition);
    return order;
}

void common_LaunchOptionTable::registerOptions()
{
    std::for_each(options().cbegin(), options().cend(), registerOption);
}
