// SPDX-License-Identifier: MIT
#pragma once

#include "crashCode.h"

#include <QDir>
#include <QFile>
#include <QStringList>

#include <csignal>

#ifdef Q_OS_WIN
#include <ConsoleBreak.h>
#include <ProcessTable.h>

#define SIGKILL 9 // the C library has none
#endif

/// The processes of a test: how they are found and killed on each system.
namespace Processes {

/// What kestdesk says of a run whose component was killed; of sentences, the beginning.
struct KilledTexts
{
    QString state;
    QString reason;
    QString meaning; ///< how the reason explains it
    QString stateInGerman;
    QString reasonInGerman;
};

#ifdef Q_OS_WIN

/// "ID PROGRAM" of each process whose program is in the folder or below: there, a process does not
/// show its environment.
inline QStringList of(const QString& /*mark*/, const QString& folder)
{
    QStringList result;
    const auto entries = ProcessTable::entries();
    for (const PROCESSENTRY32W& entry : entries) {
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

inline KilledTexts killed()
{
    return {QStringLiteral("fault, killed"),
            QStringLiteral("was killed (exception 0x0000f291): another program killed it"),
            QStringLiteral("another program killed it"), QStringLiteral("Fehler, abgebrochen"),
            QStringLiteral("wurde abgebrochen (Ausnahme 0x0000f291): ein anderes Programm hat")};
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

inline KilledTexts killed()
{
    return {QStringLiteral("fault, SIGKILL"),
            QStringLiteral("was ended by SIGKILL (signal 9): usually"),
            QStringLiteral("usually the system ran out of memory"),
            QStringLiteral("Fehler, SIGKILL"),
            QStringLiteral("wurde durch SIGKILL (Signal 9) beendet: meist ging dem System")};
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
