#include "FileLock.h"

#include <QLockFile>

// An open lock file cannot be removed here, so that what can be removed is held by nobody.
struct FileLock::System
{
    explicit System(const QString& path) : file(path) { file.setStaleLockTime(0); }

    QLockFile file;
};

FileLock::FileLock(const QString& path) : m_path(path)
{}

FileLock::~FileLock() = default;

FileLock::Outcome FileLock::tryTake()
{
    auto system = std::make_unique<System>(m_path);
    QLockFile& file = system->file;
    if (file.tryLock(0) || (file.removeStaleLockFile() && file.tryLock(0))) {
        m_system = std::move(system);
        return Taken;
    }
    return file.error() == QLockFile::LockFailedError ? HeldElsewhere : NotMade;
}
