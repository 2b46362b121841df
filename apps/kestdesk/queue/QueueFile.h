// SPDX-License-Identifier: MIT
#pragma once

#include "QueuedRun.h"

#include <QStringList>
#include <QVector>

/// The file that keeps a queue beyond the end of its program. Each process has its own in the
/// user's folder; the name of the file identifies the process.
class QueueFile
{
public:
    /// What programs have left that ended or were killed.
    struct Left
    {
        QVector<QueuedRun> runs; ///< that still waited
        QStringList damaged;     ///< paths of the files in which some could not be read
    };

    /// The file of this process, in that folder.
    explicit QueueFile(QString folder);

    /// Replaces the content of the file, in one step; without runs removes the file. False if that
    /// fails; then the file keeps its old content.
    bool write(const QVector<QueuedRun>& runs);

    /// Why the last write() has failed, as a clause.
    QString reason() const { return m_reason; }

    /// Takes over the runs that still waited when their program ended. They belong to this process
    /// alone from now on, and stay on the disk until the next write(), which has to include them.
    /// Damaged files are kept under a name of their own.
    Left takeLeft() const;

private:
    QString path() const;
    bool removeFile();
    bool replaceFile(const QVector<QueuedRun>& runs);
    QStringList takenNames() const;
    void removeTaken() const;
    QStringList leftNames() const;
    QStringList supersededNames() const;

    QString m_folder;
    QString m_reason;
};
