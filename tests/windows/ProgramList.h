// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

#include <windows.h>

#include <tlhelp32.h>

/// The programs that run on this machine, or under Wine those of the tests' installation of
/// Windows.
namespace ProgramList {

/// How many processes run the program, a name like "runkest.exe".
inline int count(const QString& program)
{
    int result = 0;
    const HANDLE snapshot = CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
    PROCESSENTRY32W entry = {};
    entry.dwSize = sizeof entry;
    for (BOOL more = Process32FirstW(snapshot, &entry); more;
         more = Process32NextW(snapshot, &entry)) {
        result += QString::fromWCharArray(entry.szExeFile) == program ? 1 : 0;
    }
    CloseHandle(snapshot);
    return result;
}

} // namespace ProgramList
