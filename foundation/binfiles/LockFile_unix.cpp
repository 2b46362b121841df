// SPDX-License-Identifier: MIT
#include "LockFile.h"

#include "LockOwner.h"
#include "PortableLockFile.h"

#include <QDateTime>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QThread>

#include <cerrno>
#include <utility>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr qint64 longestWait = 500;        // milliseconds
constexpr unsigned long retryPause = 1000; // microseconds

/// An open lock file. Its path may lead to another file meanwhile.
class OpenFile
{
public:
    enum class Locking { Locked, Held, Unsupported };

    explicit OpenFile(const QString& path) : m_path(QFile::encodeName(path)) {}
    OpenFile(OpenFile&& other) noexcept
        : m_path(std::move(other.m_path))
        , m_file(std::exchange(other.m_file, -1))
        , m_made(other.m_made)
        , m_writable(other.m_writable)
    {}
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;
    OpenFile& operator=(OpenFile&&) = delete;

    // Otherwise a child process that has not started its program yet would keep the lock.
    ~OpenFile()
    {
        if (m_file >= 0) {
            ::flock(m_file, LOCK_UN);
            ::close(m_file);
        }
    }

    bool make()
    {
        m_file = ::open(m_path.constData(), openFlags | O_RDWR | O_CREAT | O_EXCL, 0666);
        m_made = m_file >= 0;
        m_writable = m_made;
        return m_made;
    }

    // Regular files only: opening a device may have effects, and opening a pipe waits for its other
    // end.
    bool open()
    {
        struct stat status = {};
        if (::lstat(m_path.constData(), &status) != 0) {
            return false;
        }
        if (!S_ISREG(status.st_mode)) {
            errno = EINVAL;
            return false;
        }
        m_file = ::open(m_path.constData(), openFlags | O_RDWR);
        m_writable = m_file >= 0;
        if (!m_writable) {
            m_file = ::open(m_path.constData(), openFlags | O_RDONLY); // another user's
        }
        return m_file >= 0;
    }

    Locking lock() const
    {
        int result = 0;
        do {
            result = ::flock(m_file, LOCK_EX | LOCK_NB);
        } while (result != 0 && errno == EINTR);
        if (result == 0) {
            return Locking::Locked;
        }
        return errno == EWOULDBLOCK ? Locking::Held : Locking::Unsupported;
    }

    bool isCurrent() const
    {
        struct stat named = {};
        struct stat opened = {};
        return ::lstat(m_path.constData(), &named) == 0 && ::fstat(m_file, &opened) == 0 &&
               named.st_dev == opened.st_dev && named.st_ino == opened.st_ino;
    }

    LockOwner owner() const
    {
        QByteArray bytes(LockOwner::mostBytes + 1, '\0');
        const auto count = ::pread(m_file, bytes.data(), static_cast<size_t>(bytes.size()), 0);
        return LockOwner::parse(bytes.left(count > 0 ? static_cast<int>(count) : 0));
    }

    bool setOwner(const LockOwner& owner) const
    {
        const QByteArray content = owner.content();
        return ::ftruncate(m_file, 0) == 0 &&
               ::pwrite(m_file, content.constData(), static_cast<size_t>(content.size()), 0) ==
                   content.size();
    }

    // Call it only with the lock: then no other process replaces the file meanwhile.
    bool remove() const { return isCurrent() && ::unlink(m_path.constData()) == 0; }

    void clear() const
    {
        if (m_writable) {
            static_cast<void>(::ftruncate(m_file, 0) == 0);
        }
    }

    bool isMade() const { return m_made; }
    bool isWritable() const { return m_writable; }

private:
    static constexpr int openFlags = O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC;

    QByteArray m_path;
    int m_file = -1;
    bool m_made = false;
    bool m_writable = false;
};

/// A lock file with the system's lock, which ends with the process.
class SystemLockFile : public LockFile
{
public:
    explicit SystemLockFile(OpenFile file) : m_file(std::move(file)) {}
    SystemLockFile(const SystemLockFile&) = delete;
    SystemLockFile& operator=(const SystemLockFile&) = delete;
    ~SystemLockFile() override
    {
        if (!m_file.remove()) {
            m_file.clear();
        }
    }

private:
    OpenFile m_file;
};

enum class Attempt { Taken, Held, Changing /* somebody comes or goes */, NotMade, Unsupported };

bool isLeaving(const OpenFile& file)
{
    const LockOwner owner = file.owner();
    return !file.isCurrent() || !owner.isKnown() || owner.hasEnded() || owner.isEnding();
}

// The file of an ended process is used again, or replaced if it belongs to another user.
Attempt takeLocked(const OpenFile& file)
{
    if (!file.isCurrent()) {
        return Attempt::Changing;
    }
    if (file.owner().isElsewhere()) {
        return Attempt::Held;
    }
    if (file.isWritable() && file.setOwner(LockOwner::self())) {
        return Attempt::Taken;
    }
    const bool isRemoved = file.remove();
    return isRemoved && !file.isWritable() ? Attempt::Changing : Attempt::NotMade;
}

// When the file may not be opened, it is not known whether its owner has ended.
Attempt failedAttempt(int error, bool wasThere)
{
    if (wasThere && error == ENOENT) {
        return Attempt::Changing;
    }
    return wasThere && (error == EACCES || error == EPERM) ? Attempt::Held : Attempt::NotMade;
}

Attempt attempt(OpenFile& file)
{
    if (!file.make()) {
        const bool wasThere = errno == EEXIST;
        if (!file.open()) {
            return failedAttempt(errno, wasThere);
        }
    }
    switch (file.lock()) {
    case OpenFile::Locking::Held:
        return isLeaving(file) ? Attempt::Changing : Attempt::Held;
    case OpenFile::Locking::Unsupported:
        static_cast<void>(file.isMade() && file.remove());
        return Attempt::Unsupported;
    case OpenFile::Locking::Locked:
        break;
    }
    return takeLocked(file);
}

} // namespace

LockFile::Result LockFile::take(const QString& path)
{
    QElapsedTimer waiting;
    waiting.start();
    while (true) {
        OpenFile file(path);
        switch (attempt(file)) {
        case Attempt::Taken:
            return {Status::Taken, std::make_unique<SystemLockFile>(std::move(file))};
        case Attempt::Held:
            return {Status::HeldByOther, nullptr};
        case Attempt::NotMade:
            return {Status::NotMade, nullptr};
        case Attempt::Unsupported:
            return PortableLockFile::take(path);
        case Attempt::Changing:
            break;
        }
        if (waiting.hasExpired(longestWait)) {
            return {Status::HeldByOther, nullptr};
        }
        QThread::usleep(retryPause);
    }
}

void LockFile::removeLeft(const QString& path, qint64 milliseconds)
{
    const auto isOlder = [&] {
        return QFileInfo(path).lastModified().msecsTo(QDateTime::currentDateTime()) > milliseconds;
    };
    OpenFile file(path);
    if (!file.open() || !isOlder()) {
        return;
    }
    const OpenFile::Locking locking = file.lock();
    if (locking == OpenFile::Locking::Unsupported) {
        PortableLockFile::removeLeft(path, milliseconds);
    } else if (locking == OpenFile::Locking::Locked && isOlder()) {
        file.remove();
    }
}

bool LockFile::isBlocked(const QString& path)
{
    struct stat status = {};
    return ::lstat(QFile::encodeName(path).constData(), &status) == 0 && !S_ISREG(status.st_mode);
}
