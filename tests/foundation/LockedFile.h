// SPDX-License-Identifier: MIT
#pragma once

#include <SettingsProcess.h>

#include <KEST_binfiles.h>

#include <QDateTime>
#include <QFile>
#include <QTemporaryDir>

#include <memory>

inline constexpr qint64 atOnce = 1000; // milliseconds

inline constexpr uint64_t untouched = 4711;

inline const char* const lockSuffix = ".kestlock";

inline int lock(const QString& file, uint64_t* handle)
{
    return KEST_binfiles_set_lock_hard(file.toStdWString().c_str(), 0, handle);
}

inline int unlock(const QString& file, uint64_t handle)
{
    return KEST_binfiles_remove_lock(file.toStdWString().c_str(), handle);
}

inline QString statusOfOtherProcess(const QString& file)
{
    return SettingsProcess({QStringLiteral("try"), file}).said();
}

inline void makeOld(const QString& file)
{
    QFile opened(file);
    if (opened.open(QIODevice::ReadWrite)) {
        opened.setFileTime(QDateTime::fromSecsSinceEpoch(1), QFileDevice::FileModificationTime);
    }
}

inline bool write(const QString& name, const QByteArray& content)
{
    QFile file(name);
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
}

/// A file that is to be locked, in a folder of its own.
class LockStage
{
protected:
    void setUp()
    {
        m_directory = std::make_unique<QTemporaryDir>();
        m_file = m_directory->filePath(QStringLiteral("kest.ini"));
        m_lock = m_file + QLatin1String(lockSuffix);
    }

    std::unique_ptr<QTemporaryDir> m_directory;
    QString m_file;
    QString m_lock;
};
