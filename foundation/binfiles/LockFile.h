// SPDX-License-Identifier: MIT
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

    /// Takes the lock file of that path, even if an ended process has left it. Only waits for an
    /// owner that is just writing its name or just ending, for at most half a second.
    static Result take(const QString& path);

    /// Removes a lock file that is older than that many milliseconds and that no running process of
    /// this machine holds.
    static void removeLeft(const QString& path, qint64 milliseconds);

    /// Whether the path leads to something that is not a regular file.
    static bool isBlocked(const QString& path);
};
