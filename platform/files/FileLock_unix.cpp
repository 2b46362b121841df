// SPDX-License-Identifier: MIT
#include "FileLock.h"

#include <QFile>

#include <cerrno>

#include <sys/file.h>
#include <sys/stat.h>

bool FileLock::take(QFile& file)
{
    return ::flock(file.handle(), LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK;
}

bool FileLock::isAtItsPath(QFile& file)
{
    struct stat opened = {};
    struct stat current = {};
    return ::fstat(file.handle(), &opened) == 0 &&
           ::lstat(QFile::encodeName(file.fileName()).constData(), &current) == 0 &&
           opened.st_ino == current.st_ino && opened.st_dev == current.st_dev;
}
