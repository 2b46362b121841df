// SPDX-License-Identifier: MIT
#include <common_LaunchOptionMembers.h>

// clang-format off
QVector<EnumType> common_LaunchOptionMembers::processPriorities()
{
    return {
        {QStringLiteral("Idle"), IdleProcessPriority, QStringLiteral("IdleProcessPriority")},
        {QStringLiteral("Low"), LowProcessPriority, QStringLiteral("LowProcessPriority")},
        {QStringLiteral("Normal"), NormalProcessPriority, QStringLiteral("NormalProcessPriority")},
        {QStringLiteral("High"), HighProcessPriority, QStringLiteral("HighProcessPriority")},
        {QStringLiteral("Highest"), HighestProcessPriority, QStringLiteral("HighestProcessPriority")},
    };
}

QVector<EnumType> common_LaunchOptionMembers::remoteExecutionMethods()
{
    return {
        {QStringLiteral("ssh/rsh (must be installed on remote and local machine)"), SshRshExecutionMethod, QStringLiteral("sshrshExecutionMethod")},
        {QStringLiteral("MPI (Windows only)"), MPIExecutionMethod, QStringLiteral("MPIExecutionMethod")},
    };
}

QVector<EnumType> common_LaunchOptionMembers::parallelAuthenticMethods()
{
    return {
        {QStringLiteral("Use SSPI (Active Directory) integration (Windows only, requires domain)"), ParallelAuthenticMethodTypeSSPI, QStringLiteral("ParallelAuthenticMethodTypeSSPI")},
        {QStringLiteral("Local run only (no authentication required)"), ParallelAuthenticMethodTypeNone, QStringLiteral("ParallelAuthenticMethodTypeNone")},
        {QStringLiteral("Default (rsh/ssh for UNIX, PowerShell remoting for Windows)"), ParallelAuthenticMethodTypeDefault, QStringLiteral("ParallelAuthenticMethodTypeDefault")},
    };
}

QVector<EnumType> common_LaunchOptionMembers::errorThresholds()
{
    return {
        {QStringLiteral("High (fewer iterations and resources)"), HighErrorThreshold, QStringLiteral("HighErrorThreshold")},
        {QStringLiteral("Normal (default)"), NormalErrorThreshold, QStringLiteral("NormalErrorThreshold")},
        {QStringLiteral("Low (more iterations and resources)"), LowErrorThreshold, QStringLiteral("LowErrorThreshold")},
    };
}
// clang-format on
