#include "LockFile.h"

#include "PortableLockFile.h"

#include <QFileInfo>

LockFile::Result LockFile::take(const QString& path)
{
    return PortableLockFile::take(path);
}

void LockFile::removeLeft(const QString& path, qint64 milliseconds)
{
    PortableLockFile::removeLeft(path, milliseconds);
}

bool LockFile::isBlocked(const QString& path)
{
    const QFileInfo lockFile(path);
    return lockFile.isSymLink() || (lockFile.exists() && !lockFile.isFile());
}
