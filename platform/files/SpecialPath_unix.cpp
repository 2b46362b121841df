// SPDX-License-Identifier: MIT
#include "SpecialPath.h"

#include <QFile>
#include <QString>

#include <sys/stat.h>

QString SpecialPath::kind(const QString& path)
{
    struct stat status = {};
    if (::stat(QFile::encodeName(path).constData(), &status) != 0) {
        return QString();
    }
    switch (status.st_mode & S_IFMT) {
    case S_IFREG:
        return QString();
    case S_IFDIR:
        return QStringLiteral("a directory");
    case S_IFIFO:
        return QStringLiteral("a pipe");
    case S_IFSOCK:
        return QStringLiteral("a socket");
    default:
        return QStringLiteral("a device");
    }
}
