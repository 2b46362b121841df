#pragma once

#include <QString>

#include <memory>

/// A lock file that this process holds. Destroying it releases the lock and removes the file.
class LockFile
{
public:
    enum class Status { Taken, HeldByOther, NotMade };

    struct Result
    {
        Status status;
        std::unique_ptr<LockFile> lock; ///< null unless taken
    };

    LockFile() = default;
    LockFile(const LockFile&) = delete;
    LockFile& operator=(const LockFile&) = delete;
    virtual ~LockFile() = default;

    /// Takes the lock file of that path, or what an ended process has left of it. Waits for nobody
    /// but an owner that is just about to name itself or to end, and for that half a second at
    /// most.
    static Result take(const QString& path);

    /// Removes a lock file that is older than that and that no living process of this machine
    /// holds.
    static void removeLeft(const QString& path, qint64 milliseconds);

    /// Whether there is something else than a file in the place of the lock file.
    static bool isBlocked(const QString& path);
};
