#pragma once

#include "LockFile.h"

#include <QLockFile>

/// A lock file as QLockFile makes them: for systems and file systems without locks that end with
/// their process. There a lock is its owner's as long as a process of that number and name runs.
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
