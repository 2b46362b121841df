// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QString>
#include <QtTest>

#include <sys/stat.h>

#ifdef Q_OS_UNIX
#include <sys/sysmacros.h>
#include <unistd.h>
#else // kinds that its header lacks
#define S_IFLNK 0120000
#define S_IFSOCK 0140000
#endif

/// What may stand in the place of a file without being one.
namespace SpecialFile {

#ifdef Q_OS_UNIX

/// Whether this user can make files of this kind on this system.
inline bool canMake(int kind)
{
    return (kind != S_IFCHR && kind != S_IFBLK) || ::geteuid() == 0;
}

/// Makes what the file type of stat() says at a path: S_IFDIR, S_IFIFO, S_IFSOCK, S_IFLNK to
/// nowhere, or, which only the administrator can, S_IFCHR and S_IFBLK.
inline bool make(int kind, const QString& path)
{
    const QByteArray name = QFile::encodeName(path);
    switch (kind) {
    case S_IFDIR:
        return ::mkdir(name.constData(), 0700) == 0;
    case S_IFLNK:
        return ::symlink("nowhere/at/all", name.constData()) == 0;
    case S_IFCHR: // as /dev/zero
        return ::mknod(name.constData(), S_IFCHR | 0600, makedev(1, 5)) == 0;
    case S_IFBLK: // as the first RAM disk
        return ::mknod(name.constData(), S_IFBLK | 0600, makedev(1, 0)) == 0;
    default:
        return ::mknod(name.constData(), mode_t(kind) | 0600, 0) == 0;
    }
}

/// The file type of what is there now; 0 for nothing.
inline int kindOf(const QString& path)
{
    struct stat status = {};
    return ::lstat(QFile::encodeName(path).constData(), &status) == 0 ? int(status.st_mode & S_IFMT)
                                                                      : 0;
}

#else // folders have nothing else there

inline bool canMake(int kind)
{
    return kind == S_IFDIR;
}

inline bool make(int kind, const QString& path)
{
    return kind == S_IFDIR && QDir().mkdir(path);
}

inline int kindOf(const QString& path)
{
    const QFileInfo file(path);
    if (!file.exists()) {
        return 0;
    }
    return file.isDir() ? S_IFDIR : S_IFREG;
}

#endif

} // namespace SpecialFile

/// Makes a file of the kind for a test function, which is skipped where it cannot be made.
#define SPECIAL_FILE_OR_SKIP(kind, path)                                                           \
    do {                                                                                           \
        if (!SpecialFile::canMake(kind)) {                                                         \
            QSKIP("this user, or this system, cannot make such a thing in a folder");              \
        }                                                                                          \
        QVERIFY(SpecialFile::make(kind, path));                                                    \
    } while (false)

/// Makes a link to a device for a test function, which is skipped where devices are in no folder.
#define DEVICE_LINK_OR_SKIP(device, path)                                                          \
    do {                                                                                           \
        if (!SpecialFile::canMake(S_IFIFO)) {                                                      \
            QSKIP("this system has no devices in a folder");                                       \
        }                                                                                          \
        QVERIFY(QFile::link(QStringLiteral(device), path));                                        \
    } while (false)
