// SPDX-License-Identifier: MIT
#pragma once

#include <QDir>
#include <QFile>
#include <QStringList>

#include <csignal>

#ifdef Q_OS_WIN
#include <ConsoleBreak.h>

#include <windows.h>

#include <tlhelp32.h>

#define SIGKILL 9 // the C library has none
#endif

/// The processes of a test: how they are found and killed on each system.
namespace Processes {

#ifdef Q_OS_WIN

/// "ID PROGRAM" of each process whose program is in the folder or below: there, a process does not
/// show its environment.
inline QStringList of(const QString& /*mark*/, const QString& folder)
{
    QStringList result;
    const HANDLE snapshot = CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
    PROCESSENTRY32W entry = {};
    entry.dwSize = sizeof entry;
    for (BOOL more = Process32FirstW(snapshot, &entry); more;
         more = Process32NextW(snapshot, &entry)) {
        const HANDLE process =
            OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, entry.th32ProcessID);
        wchar_t path[1024] = L"";
        DWORD size = 1024;
        if (process && QueryFullProcessImageNameW(process, 0, path, &size) &&
            QDir::fromNativeSeparators(QString::fromWCharArray(path))
                .startsWith(folder, Qt::CaseInsensitive)) {
            result.append(QStringLiteral("%1 %2")
                              .arg(entry.th32ProcessID)
                              .arg(QString::fromWCharArray(path)));
        }
        CloseHandle(process);
    }
    CloseHandle(snapshot);
    return result;
}

inline void kill(DWORD id)
{
    const HANDLE process = OpenProcess(PROCESS_TERMINATE, FALSE, id);
    TerminateProcess(process, 0xF291); // which QProcess takes for a crash
    CloseHandle(process);
}

/// SIGKILL kills processes of of(); all other signals are Ctrl+Break.
inline void send(int signal, const QStringList& processes)
{
    for (const QString& line : processes) {
        const DWORD id = line.section(QLatin1Char(' '), 0, 0).toUInt();
        if (signal == SIGKILL) {
            kill(id);
        } else {
            ConsoleBreak::send(id);
        }
    }
}

/// The state of a run whose component was killed.
inline QString killedState()
{
    return QStringLiteral("fault, killed");
}

/// Makes a program appear at a path, which is given without the suffix of programs.
inline bool install(const QString& program, const QString& path)
{
    return QFile::copy(program, path + QStringLiteral(".exe"));
}

/// The file of a program at that path.
inline QString installed(const QString& path)
{
    return path + QStringLiteral(".exe");
}

#else

/// "ID COMMAND" of each process with the mark in its environment.
inline QStringList of(const QString& mark, const QString& /*folder*/)
{
    const auto contentOf = [](const QString& fileName) {
        QFile file(fileName);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    };
    QStringList result;
    const QStringList directories =
        QDir(QStringLiteral("/proc")).entryList({QStringLiteral("[0-9]*")}, QDir::Dirs);
    for (const QString& directory : directories) {
        const QString process = QStringLiteral("/proc/") + directory;
        if (contentOf(process + QStringLiteral("/environ")).contains(mark.toLatin1())) {
            result.append(directory + QLatin1Char(' ') +
                          QString::fromUtf8(
                              contentOf(process + QStringLiteral("/cmdline")).replace('\0', ' ')));
        }
    }
    return result;
}

/// Sends a signal to processes of of().
inline void send(int signal, const QStringList& processes)
{
    for (const QString& line : processes) {
        ::kill(line.section(QLatin1Char(' '), 0, 0).toInt(), signal);
    }
}

/// The state of a run whose component was killed.
inline QString killedState()
{
    return QStringLiteral("fault, SIGKILL");
}

/// Makes a program appear at a path, which is given without the suffix of programs.
inline bool install(const QString& program, const QString& path)
{
    return QFile::link(program, path);
}

/// The file of a program at that path.
inline QString installed(const QString& path)
{
    return path;
}

#endif

} // namespace Processes
