// SPDX-License-Identifier: MIT
#include "FileReplacement.h"

#include <QFile>

bool FileReplacement::isPossibleWhileOpen()
{
    return true;
}

int FileReplacement::longestWait()
{
    return 0;
}

bool FileReplacement::rename(const QString& path, const QString& newPath)
{
    return QFile::rename(path, newPath);
}

bool FileReplacement::remove(const QString& path)
{
    return QFile::remove(path);
}
