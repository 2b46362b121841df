// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

/// The owner that a lock file names.
struct LockOwner
{
    qint64 process = 0; ///< 0: not known
    QString program;
    QString host;

    /// This process.
    static LockOwner self();

    /// Reads a few lines of the lock file, of any size. Only regular files are read.
    static LockOwner of(const QString& path);

    static LockOwner parse(const QByteArray& content);
    QByteArray content() const;

    bool isKnown() const { return process != 0; }

    /// Whether its process belongs to another machine, so that its state is not known.
    bool isElsewhere() const;

    /// Whether it belongs to this machine and has ended. False if unknown.
    bool hasEnded() const;

    /// Whether it belongs to this machine and was killed, but may not have ended yet.
    bool isEnding() const;

    /// The largest size of a lock file that this library writes.
    static constexpr qint64 mostBytes = 4096;
};
