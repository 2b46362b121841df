// SPDX-License-Identifier: MIT
#pragma once

#include "LockFile.h"

#include <QLockFile>

/// A lock file made by QLockFile, for systems and file systems whose locks do not end with their
/// process. The owner has the lock as long as a process with its number and name runs.
class PortableLockFile : public LockFile
{
public:
    explicit PortableLockFile(const QString& path);
    ~PortableLockFile() override;

    static Result take(const QString& path);
    static void removeLeft(const QString& path, qint64 milliseconds);

private:
    QString m_path;
    std::unique_ptr<QLockFile> m_file;
};
