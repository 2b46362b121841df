// SPDX-License-Identifier: MIT
#include "PortableLockFile.h"

#include "LockOwner.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QThread>

#include <utility>
#include <vector>

namespace {

// The suffix of the lock that protects the takeover of a lock file.
const char* const takeoverSuffix = ".takeover";

// A running process fills its lock file at once after making it.
constexpr qint64 youngLock = 500; // milliseconds

// A takeover that takes longer was killed.
constexpr qint64 longestTakeover = 10000; // milliseconds

constexpr unsigned long retryPause = 5000; // microseconds

bool isOlder(const QString& path, qint64 milliseconds)
{
    const QFileInfo lockFile(path);
    return lockFile.isFile() &&
           lockFile.lastModified().msecsTo(QDateTime::currentDateTime()) > milliseconds;
}

// Left by a crash or a full disk. A file that is just being made is young and small.
bool isUnreadable(const QString& path)
{
    return !LockOwner::of(path).isKnown() &&
           (isOlder(path, youngLock) || QFileInfo(path).size() > LockOwner::mostBytes);
}

// One process at a time. Qt's own removal needs the system's locks, which may be missing here.
template <typename IsLeft>
void removeIf(const QString& path, IsLeft isLeft)
{
    if (!isLeft()) {
        return;
    }
    const QString takeoverPath = path + QLatin1String(takeoverSuffix);
    if (isOlder(takeoverPath, longestTakeover)) {
        QFile::remove(takeoverPath);
    }
    QLockFile takeover(takeoverPath);
    if (takeover.tryLock(0) && isLeft()) {
        QFile::remove(path);
    }
}

bool isOfLivingProcess(const LockOwner& owner)
{
    return owner.isKnown() && !owner.isElsewhere() && !owner.hasEnded();
}

// For lock files that were deleted while they were held and may belong to another owner now. The
// destructor of QLockFile would remove them, so it is not called before the process ends.
void abandon(std::unique_ptr<QLockFile> lock)
{
    static auto* const abandoned = new std::vector<std::unique_ptr<QLockFile>>;
    abandoned->push_back(std::move(lock));
}

} // namespace

PortableLockFile::PortableLockFile(const QString& path)
    : m_path(path), m_file(std::make_unique<QLockFile>(path))
{
    m_file->setStaleLockTime(
        0); // a dialog may hold it for long; only the end of its process makes it stale
}

PortableLockFile::~PortableLockFile()
{
    const LockOwner owner = LockOwner::of(m_path);
    if (owner.isKnown() && owner.process != QCoreApplication::applicationPid()) {
        abandon(std::move(m_file));
    }
}

LockFile::Result PortableLockFile::take(const QString& path)
{
    QElapsedTimer waiting;
    waiting.start();
    while (true) {
        removeIf(path, [&path] { return isUnreadable(path) || LockOwner::of(path).hasEnded(); });
        auto lock = std::make_unique<PortableLockFile>(path);
        if (lock->m_file->tryLock(0)) {
            return {Status::Taken, std::move(lock)};
        }
        if (lock->m_file->error() != QLockFile::LockFailedError) {
            return {Status::NotMade, nullptr};
        }
        const LockOwner owner = LockOwner::of(path);
        const bool mayGo = !owner.isKnown() || owner.hasEnded() || owner.isEnding();
        if (!mayGo || waiting.hasExpired(2 * youngLock)) {
            return {Status::HeldByOther, nullptr};
        }
        QThread::usleep(retryPause);
    }
}

void PortableLockFile::removeLeft(const QString& path, qint64 milliseconds)
{
    removeIf(path, [&] {
        return isOlder(path, milliseconds) && !isOfLivingProcess(LockOwner::of(path));
    });
}
