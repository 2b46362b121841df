#ifndef FILELOCK_H
#define FILELOCK_H

#include <QString>

#include <memory>

/// A file that locks by being held open: only one process has it, and the system takes it back when
/// that process ends, in whatever way. What a dead process leaves on the disk is no obstacle,
/// whatever is in it.
class FileLock
{
public:
    enum Outcome { Taken, HeldElsewhere, NotMade };

    explicit FileLock(const QString& path);
    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;

    /// Removes the file if the lock was taken.
    ~FileLock();

    /// Takes the lock, at once or not at all. The file then tells who holds it, a line each: the
    /// process id, the application's name, the host's name.
    Outcome tryTake();

private:
    struct System;

    QString m_path;
    std::unique_ptr<System> m_system;
};

#endif
