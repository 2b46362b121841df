// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <memory>

class QLockFile;

/// Locks a model for one run at a time, among all programs of this user: two runs would overwrite
/// each other's results. Symbolic links are followed.
class ModelLock
{
public:
    explicit ModelLock(const QString& model);
    ~ModelLock();

    /// Takes the lock. False if another run has it; true, too, if no lock file can be made. Locks
    /// of killed programs do not count, nor files that name no process for ten seconds.
    bool take();

    void release();

    /// The owner of the lock, after take() has returned false: "process 123 on this machine".
    QString owner() const;

    /// Removes the lock files of killed programs.
    static void removeLeft();

private:
    std::unique_ptr<QLockFile> m_file;
};
