// SPDX-License-Identifier: MIT
#include "SpecialPath.h"

#include <QFileInfo>
#include <QString>

QString SpecialPath::kind(const QString& path)
{
    const QFileInfo file(path);
    if (!file.exists() || file.isFile()) {
        return QString();
    }
    return file.isDir() ? QStringLiteral("a directory") : QStringLiteral("a device");
}
