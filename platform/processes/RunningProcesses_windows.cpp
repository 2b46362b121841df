// SPDX-License-Identifier: MIT
#include "RunningProcesses.h"

#include <QSysInfo>

#include <windows.h>

QByteArray RunningProcesses::host()
{
    return QSysInfo::machineHostName().toUtf8() + '\n' + QSysInfo::machineUniqueId();
}

// Processes keep the number of a parent that has ended, which may be another one's by now.
qint64 RunningProcesses::parentOf(qint64 /*processId*/)
{
    return 0;
}

// The start times of processes are those of the clock: they differ after a restart.
QByteArray RunningProcesses::boot()
{
    return QByteArray();
}

qint64 RunningProcesses::ownId()
{
    return GetCurrentProcessId();
}

bool RunningProcesses::isEnding(qint64 /*processId*/)
{
    return false; // a killed process has ended at once
}

std::optional<quint64> RunningProcesses::startTime(qint64 processId)
{
    const HANDLE process = OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION | SYNCHRONIZE, FALSE,
                                       static_cast<DWORD>(processId));
    if (!process) {
        return GetLastError() == ERROR_INVALID_PARAMETER ? std::optional<quint64>(0) : std::nullopt;
    }
    FILETIME start = {};
    FILETIME unused = {};
    const bool isTold = GetProcessTimes(process, &start, &unused, &unused, &unused);
    const bool hasEnded = WaitForSingleObject(process, 0) == WAIT_OBJECT_0;
    CloseHandle(process);
    if (hasEnded) {
        return 0;
    }
    return isTold
               ? std::optional<quint64>(quint64(start.dwHighDateTime) << 32 | start.dwLowDateTime)
               : std::nullopt;
}

bool RunningProcesses::haveArgumentEndingWith(const QString& /*end*/)
{
    return false;
}

// Temporary folders are the user's own there.
bool RunningProcesses::isOwnFile(const QFileInfo& /*file*/)
{
    return true;
}

// Permissions say there whether the folder is read-only.
bool RunningProcesses::isPrivateFolder(const QFileInfo& /*folder*/)
{
    return true;
}
