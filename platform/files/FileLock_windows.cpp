// SPDX-License-Identifier: MIT
#include "FileLock.h"

#include <QFile>

#include <io.h>
#include <windows.h>

// One byte far behind the end: locked bytes cannot be read by others.
bool FileLock::take(QFile& file)
{
    OVERLAPPED place = {};
    place.OffsetHigh = 0x40000000;
    const auto handle = reinterpret_cast<HANDLE>(_get_osfhandle(file.handle()));
    return LockFileEx(handle, LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY, 0, 1, 0,
                      &place) != 0 ||
           GetLastError() != ERROR_LOCK_VIOLATION;
}

// Qt opens files so that they can be neither renamed nor removed.
bool FileLock::isAtItsPath(QFile& file)
{
    return file.isOpen();
}
