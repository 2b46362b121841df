// SPDX-License-Identifier: MIT
// On Windows alone.
#pragma once

#include <QString>
#include <QVector>

#include <windows.h>

#include <tlhelp32.h>

#include <algorithm>

/// The processes of this machine, or under Wine those of the tests' installation of Windows.
namespace ProcessTable {

/// Those that have not ended.
inline QVector<PROCESSENTRY32W> entries()
{
    QVector<PROCESSENTRY32W> result;
    const HANDLE snapshot = CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
    PROCESSENTRY32W entry = {};
    entry.dwSize = sizeof entry;
    for (BOOL more = Process32FirstW(snapshot, &entry); more;
         more = Process32NextW(snapshot, &entry)) {
        result.append(entry);
    }
    CloseHandle(snapshot);
    return result;
}

/// How many run the program, a name like "runkest.exe".
inline int count(const QString& program)
{
    const auto all = entries();
    return static_cast<int>(
        std::count_if(all.begin(), all.end(), [&program](const PROCESSENTRY32W& entry) {
            return QString::fromWCharArray(entry.szExeFile) == program;
        }));
}

/// How many were started by the process.
inline int childrenOf(DWORD id)
{
    const auto all = entries();
    return static_cast<int>(
        std::count_if(all.begin(), all.end(), [id](const PROCESSENTRY32W& entry) {
            return entry.th32ParentProcessID == id;
        }));
}

} // namespace ProcessTable
