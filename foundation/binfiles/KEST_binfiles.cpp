#include <KEST_binfiles.h>

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QLockFile>

#include <algorithm>
#include <map>
#include <memory>
#include <utility>
#include <vector>

namespace {

// Not ".lock": QSettings takes that one itself whenever it writes, and would wait for ever.
const char* const lockSuffix = ".kestlock";

// Beside a lock file that is being taken over.
const char* const takeoverSuffix = ".takeover";

// A living process fills its lock file right after making it.
constexpr qint64 youngLock = 500; // milliseconds

// An owner is a few short lines. More is not read: it could be a gigabyte.
constexpr qint64 largestLockFile = 4096; // bytes

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

struct Owner
{
    qint64 process = 0; // 0: cannot be told
    QString host;
};

Owner ownerOf(const QString& file)
{
    Owner owner;
    QString application;
    const QFileInfo lockFile(lockPath(file));
    if (!lockFile.isFile() || lockFile.size() > largestLockFile ||
        !QLockFile(lockPath(file)).getLockInfo(&owner.process, &owner.host, &application)) {
        owner = Owner();
    }
    return owner;
}

// A folder, a pipe or a link in the place of the lock file: nothing to wait for, or to read.
bool isBlocked(const QString& file)
{
    const QFileInfo lockFile(lockPath(file));
    return lockFile.isSymLink() || (lockFile.exists() && !lockFile.isFile());
}

bool isOlder(const QString& file, qint64 milliseconds)
{
    const QFileInfo lockFile(lockPath(file));
    return lockFile.isFile() &&
           lockFile.lastModified().msecsTo(QDateTime::currentDateTime()) > milliseconds;
}

// One process at a time, and never the lock of a process that lives on this machine: the system
// keeps its file locked too, and removeStaleLockFile() respects that.
template <typename IsLeft>
void removeLeftLock(const QString& file, IsLeft isLeft)
{
    if (isLeft()) {
        QLockFile takeover(lockPath(file) + QLatin1String(takeoverSuffix));
        if (takeover.tryLock(0) && isLeft()) {
            QLockFile(lockPath(file)).removeStaleLockFile();
        }
    }
}

// A lock file whose owner cannot be read is not a lock, but what a crash or a full disk has left.
void removeUnreadableLock(const QString& file)
{
    removeLeftLock(file,
                   [&file] { return isOlder(file, youngLock) && ownerOf(file).process == 0; });
}

// Lock files that were deleted under their owner and are perhaps somebody else's by now. QLockFile
// would remove them all the same, so it is kept from it to the end of the process.
void abandon(std::unique_ptr<QLockFile> lock)
{
    static auto* const abandoned = new std::vector<std::unique_ptr<QLockFile>>;
    abandoned->push_back(std::move(lock));
}

void unlock(Lock& lock)
{
    const Owner owner = ownerOf(lock.path);
    if (owner.process != 0 && owner.process != QCoreApplication::applicationPid()) {
        abandon(std::move(lock.file));
    }
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
    if (isBlocked(file)) {
        return KEST_BINFILES_LOCK_NOT_MADE;
    }
    removeUnreadableLock(file);
    auto lock = std::make_unique<QLockFile>(lockPath(file));
    lock->setStaleLockTime(0); // held as long as a dialog: only the end of its process ends a lock
    if (!lock->tryLock(0)) {
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
    unlock(held->second);
    locks().erase(held);
    return 0;
}

void KEST_binfiles_remove_left_lock(const wchar_t* path, int64_t milliseconds)
{
    const QString file = absolutePath(path);
    removeLeftLock(file, [&] { return isOlder(file, milliseconds); });
}

int64_t KEST_binfiles_lock_owner(const wchar_t* path, char* host, size_t hostSize)
{
    const Owner owner = ownerOf(absolutePath(path));
    if (host && hostSize > 0) {
        qstrncpy(host, owner.host.toUtf8().constData(), static_cast<uint>(hostSize));
    }
    return owner.process;
}
