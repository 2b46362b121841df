// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>

#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

/// What may stand in the place of a file without being one.
namespace SpecialFile {

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

} // namespace SpecialFile
