// SPDX-License-Identifier: MIT
#pragma once

#include <QFile>
#include <QString>
#include <QtTest>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#endif

/// A named pipe in the place of a file. On Windows, pipes are in no folder.
namespace NamedPipe {

#ifdef Q_OS_UNIX
constexpr bool areInFolders = true;

inline bool make(const QString& path)
{
    return ::mkfifo(QFile::encodeName(path).constData(), 0600) == 0;
}

inline bool isAt(const QString& path)
{
    struct stat status = {};
    return ::stat(QFile::encodeName(path).constData(), &status) == 0 && S_ISFIFO(status.st_mode);
}
#else
constexpr bool areInFolders = false;

inline bool make(const QString&)
{
    return false;
}

inline bool isAt(const QString&)
{
    return false;
}
#endif

} // namespace NamedPipe

/// Makes a pipe for a test function, which is skipped where there can be none.
#define NAMED_PIPE_OR_SKIP(path)                                                                   \
    do {                                                                                           \
        if (!NamedPipe::areInFolders) {                                                            \
            QSKIP("on Windows, pipes are in no folder");                                           \
        }                                                                                          \
        QVERIFY(NamedPipe::make(path));                                                            \
    } while (false)

/// Makes a link to a device for a test function, which is skipped where devices are no files.
#define DEVICE_LINK_OR_SKIP(device, path)                                                          \
    do {                                                                                           \
        if (!NamedPipe::areInFolders) {                                                            \
            QSKIP("on Windows, devices are in no folder");                                         \
        }                                                                                          \
        QVERIFY(QFile::link(QStringLiteral(device), path));                                        \
    } while (false)
