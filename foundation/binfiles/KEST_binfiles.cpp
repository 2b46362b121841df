#include <KEST_binfiles.h>

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QLockFile>

#include <algorithm>
#include <cstring>
#include <map>
#include <memory>

namespace {

// Not ".lock": QSettings takes that one itself whenever it writes, and would wait for ever.
const char* const lockSuffix = ".kestlock";

// A lock file is made first and filled and locked right after: one as young as this is left alone.
constexpr qint64 newLockMilliseconds = 2000;

struct Lock
{
    QString path;
    std::unique_ptr<QLockFile> file;
};

using Locks = std::map<uint64_t, Lock>;

Locks& locks()
{
    static Locks held;
    return held;
}

QString absolutePath(const wchar_t* path)
{
    const QFileInfo file(QString::fromWCharArray(path));
    const QString folder = QFileInfo(file.absolutePath()).canonicalFilePath();
    return folder.isEmpty() ? file.absoluteFilePath() : QDir(folder).filePath(file.fileName());
}

QString lockPath(const QString& path)
{
    return path + QLatin1String(lockSuffix);
}

Locks::iterator lockOf(const QString& path)
{
    return std::find_if(locks().begin(), locks().end(), [&path](const Locks::value_type& held) {
        return held.second.path == path;
    });
}

// Removes what a process left that no longer lives. QLockFile does so where it can read the process
// id; a lock file that is empty or damaged, or whose id now is another process's, is still not
// locked by the system, and removeStaleLockFile() asks for that.
bool removeLeftLock(QLockFile& lock, const QString& path)
{
    const QDateTime modified = QFileInfo(lockPath(path)).lastModified();
    return modified.msecsTo(QDateTime::currentDateTime()) > newLockMilliseconds &&
           lock.removeStaleLockFile();
}

bool tryLock(QLockFile& lock, const QString& path)
{
    return lock.tryLock(0) || (lock.error() == QLockFile::LockFailedError &&
                               removeLeftLock(lock, path) && lock.tryLock(0));
}

uint64_t newHandle()
{
    static uint64_t last = 0;
    return ++last;
}

} // namespace

int KEST_binfiles_set_lock_hard(const wchar_t* path, int /*option*/, uint64_t* handle)
{
    QDir().mkpath(QFileInfo(QString::fromWCharArray(path)).absolutePath());
    const QString file = absolutePath(path);
    if (lockOf(file) != locks().end()) {
        return KEST_BINFILES_LOCKED_BY_THIS_PROCESS;
    }
    auto lock = std::make_unique<QLockFile>(lockPath(file));
    lock->setStaleLockTime(0); // a lock lives as long as a dialog: only its process's end ends it
    if (!tryLock(*lock, file)) {
        return lock->error() == QLockFile::LockFailedError ? KEST_BINFILES_LOCKED_BY_OTHER_PROCESS
                                                           : KEST_BINFILES_LOCK_NOT_MADE;
    }
    *handle = newHandle();
    locks()[*handle] = Lock{file, std::move(lock)};
    return KEST_BINFILES_LOCK_TAKEN;
}

int KEST_binfiles_remove_lock(const wchar_t* path, uint64_t handle)
{
    const auto held = locks().find(handle);
    if (held == locks().end() || held->second.path != absolutePath(path)) {
        return 1;
    }
    locks().erase(held);
    return 0;
}

int64_t KEST_binfiles_lock_owner(const wchar_t* path, char* host, size_t hostSize)
{
    const QLockFile lock(lockPath(absolutePath(path)));
    qint64 process = 0;
    QString hostName;
    QString application;
    if (!lock.getLockInfo(&process, &hostName, &application)) {
        process = 0;
    }
    if (host && hostSize > 0) {
        const QByteArray name = hostName.toUtf8().left(static_cast<int>(hostSize) - 1);
        std::memcpy(host, name.constData(), static_cast<size_t>(name.size()) + 1);
    }
    return process;
}
