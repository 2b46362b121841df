// SPDX-License-Identifier: MIT
#include "ModelLock.h"

#include <common_IApplicationInfo.h>
#include <common_ServiceOf.h>

#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>
#include <QLockFile>
#include <QSysInfo>

namespace {

// A program makes the file of a lock and then writes its process into it.
constexpr int namelessTime = 10000; // ms

QDir lockFolder()
{
    return {GET_SERVICE(common_IApplicationInfo)->userSettingsDirectory() +
            QStringLiteral("/locks")};
}

// A run may take any time, so locks do not expire.
std::unique_ptr<QLockFile> makeLock(const QString& path)
{
    auto lock = std::make_unique<QLockFile>(path);
    lock->setStaleLockTime(0);
    return lock;
}

QString lockFile(const QString& model)
{
    const QFileInfo file(model);
    const QString path = file.exists() ? file.canonicalFilePath() : file.absoluteFilePath();
    const QByteArray hash =
        QCryptographicHash::hash(path.toUtf8(), QCryptographicHash::Sha256).toHex();
    const QDir folder = lockFolder();
    folder.mkpath(QStringLiteral("."));
    return folder.filePath(QString::fromLatin1(hash) + QStringLiteral(".lock"));
}

bool namesOwner(const QLockFile& lock)
{
    qint64 process = 0;
    QString host;
    QString program;
    return lock.getLockInfo(&process, &host, &program);
}

// On Windows, QLockFile takes the name from this variable, which is in capitals and may be
// shortened.
bool isThisMachine(const QString& host)
{
    return host == QSysInfo::machineHostName() || host == qEnvironmentVariable("COMPUTERNAME");
}

// Also if the file names no process because of a power failure or a kill in the moment between.
bool takeOver(QLockFile& lock)
{
    if (lock.tryLock(0)) {
        return true;
    }
    if (lock.error() != QLockFile::LockFailedError || namesOwner(lock)) {
        return false;
    }
    lock.setStaleLockTime(namelessTime);
    const bool isTaken = lock.tryLock(0);
    lock.setStaleLockTime(0);
    return isTaken;
}

} // namespace

ModelLock::ModelLock(const QString& model) : m_file(makeLock(lockFile(model)))
{}

ModelLock::~ModelLock() = default;

bool ModelLock::take()
{
    return m_file->isLocked() || takeOver(*m_file) || m_file->error() != QLockFile::LockFailedError;
}

void ModelLock::release()
{
    m_file->unlock();
}

QString ModelLock::owner() const
{
    qint64 process = 0;
    QString host;
    QString program;
    if (!m_file->getLockInfo(&process, &host, &program)) {
        return QStringLiteral("another process");
    }
    const QString place = isThisMachine(host) ? QStringLiteral("this machine") : host;
    return QStringLiteral("process %1 on %2").arg(process).arg(place);
}

void ModelLock::removeLeft()
{
    const QDir folder = lockFolder();
    const QStringList names = folder.entryList({QStringLiteral("*.lock")}, QDir::Files);
    for (const QString& name : names) {
        (void)takeOver(*makeLock(folder.filePath(name))); // removed by its destructor
    }
}
