#pragma once

#include "QueuedRun.h"

#include <QVector>

/// Where a queue outlives its program: a file of its own for each program, in the user's folder,
/// that says which process it belongs to.
class QueueFile
{
public:
    /// Of this process, in that folder.
    explicit QueueFile(QString folder);

    /// Replaces what the file says; without runs there is no file. False when it cannot be written,
    /// and then the file says what it has said before.
    bool write(const QVector<QueuedRun>& runs);

    /// Why the last write() has failed, as a clause.
    QString reason() const { return m_reason; }

    /// The runs that still waited when their program ended or was killed. They belong to this
    /// process now and to no other, and stay on the disk until the next write(), which has to
    /// include them.
    QVector<QueuedRun> takeLeft() const;

private:
    QString path() const;
    bool removeFile();
    bool replaceFile(const QVector<QueuedRun>& runs);
    void removeTaken() const;

    QString m_folder;
    QString m_reason;
};
