#pragma once

#include <QByteArray>
#include <QString>

/// Who a lock file says that it belongs to.
struct LockOwner
{
    qint64 process = 0; ///< 0: cannot be told
    QString program;
    QString host;

    /// This process.
    static LockOwner self();

    /// Reads a few lines of the lock file, however large it is, and of a regular file only.
    static LockOwner of(const QString& path);

    static LockOwner parse(const QByteArray& content);
    QByteArray content() const;

    bool isKnown() const { return process != 0; }

    /// Whether its process belongs to another machine, which cannot be asked about it.
    bool isElsewhere() const;

    /// Whether it belongs to this machine and has ended. False in doubt.
    bool hasEnded() const;

    /// Whether it belongs to this machine and was killed, but may not have ended yet.
    bool isEnding() const;

    /// No lock file of a process is larger.
    static constexpr qint64 mostBytes = 4096;
};
