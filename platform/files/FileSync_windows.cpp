// SPDX-License-Identifier: MIT
#include "FileSync.h"

#include <QFile>

#include <io.h>
#include <windows.h>

bool syncToDisk(QFile& file)
{
    const auto handle = reinterpret_cast<HANDLE>(_get_osfhandle(file.handle()));
    return file.flush() && FlushFileBuffers(handle) != 0;
}
