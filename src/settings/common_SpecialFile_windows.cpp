#include "common_SpecialFile.h"

#include <QFileInfo>
#include <QString>

QString common_specialFileKind(const QString& path)
{
    const QFileInfo file(path);
    if (!file.exists() || file.isFile()) {
        return QString();
    }
    return file.isDir() ? QStringLiteral("a directory") : QStringLiteral("a device");
}
