// SPDX-License-Identifier: MIT
#include "FileSync.h"

#include <QFile>

#include <unistd.h>

bool syncToDisk(QFile& file)
{
    return file.flush() && fdatasync(file.handle()) == 0;
}
