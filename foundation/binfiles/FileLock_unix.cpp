#include "FileLock.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QFile>
#include <QSysInfo>

#include <cerrno>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

// Whoever ends a lock removes its file, so that one which was opened just before is locked in vain.
constexpr int mostTries = 100;

// Never handed on to a child process, which would hold the lock as long as it lives. What another
// user left may be locked as well.
int openFile(const QByteArray& path)
{
    constexpr int flags = O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK;
    const int file = ::open(path.constData(), O_RDWR | flags, 0666);
    return file < 0 && errno == EACCES ? ::open(path.constData(), O_RDONLY | flags, 0666) : file;
}

bool isStillThere(int file, const QByteArray& path)
{
    struct stat held = {};
    struct stat there = {};
    return ::fstat(file, &held) == 0 && ::lstat(path.constData(), &there) == 0 &&
           held.st_dev == there.st_dev && held.st_ino == there.st_ino;
}

QByteArray owner()
{
    const QString application = QCoreApplication::applicationName();
    return QByteArray::number(QCoreApplication::applicationPid()) + '\n' + application.toUtf8() +
           '\n' + QSysInfo::machineHostName().toUtf8() + '\n';
}

// The lock holds without it, on a full disk for example.
void writeOwner(int file)
{
    const QByteArray text = owner();
    if (::ftruncate(file, 0) != 0 || ::write(file, text.constData(), size_t(text.size())) < 0) {
        return;
    }
}

} // namespace

struct FileLock::System
{
    explicit System(const QByteArray& filePath) : path(filePath), file(openFile(path)) {}
    System(const System&) = delete;
    System& operator=(const System&) = delete;

    // Removed while it is still locked: nobody else's can be there in its place.
    ~System()
    {
        if (isTaken && isStillThere(file, path)) {
            ::unlink(path.constData());
        }
        if (file >= 0) {
            ::close(file);
        }
    }

    const QByteArray path;
    const int file;
    bool isTaken = false;
};

FileLock::FileLock(const QString& path) : m_path(path)
{}

FileLock::~FileLock() = default;

FileLock::Outcome FileLock::tryTake()
{
    for (int attempt = 0; attempt < mostTries; ++attempt) {
        auto system = std::make_unique<System>(QFile::encodeName(m_path));
        if (system->file < 0) {
            return NotMade;
        }
        if (::flock(system->file, LOCK_EX | LOCK_NB) != 0) {
            return errno == EWOULDBLOCK ? HeldElsewhere : NotMade;
        }
        if (isStillThere(system->file, system->path)) {
            system->isTaken = true;
            writeOwner(system->file);
            m_system = std::move(system);
            return Taken;
        }
    }
    return HeldElsewhere;
}
