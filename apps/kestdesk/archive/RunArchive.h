#pragma once

#include "RunRecord.h"

#include <QString>
#include <QVector>

#include <optional>

/// The records of the user's runs, a folder each below one folder. Several programs may use the
/// archive at once. Nothing here keeps a state: every call asks the disk, and may be made from any
/// thread.
class RunArchive
{
public:
    /// What the archive may hold; running runs do not count.
    struct Limits
    {
        int days = 0;
        int megabytes = 0;
    };

    explicit RunArchive(QString folder);

    /// The archive of this user, beside the settings.
    static RunArchive ofUser();

    QString folder() const { return m_folder; }

    /// Those of all records, in ascending order.
    QVector<int> numbers() const;

    /// All of them, the newest first.
    QVector<RunRecord> records() const;

    /// Nothing when there is no such record, or when it cannot be read.
    std::optional<RunRecord> record(int number) const;

    /// What add() has done.
    struct Addition
    {
        int number = 0; ///< 0 when there is no record
        QString folder;
        QString problem; ///< why there is no record, as a clause
    };

    /// Adds a record of a run that begins now, with a copy of its model and, unless the path is
    /// empty, of its machines file.
    Addition add(RunRecord record, const QString& machinesFile) const;

    /// Deletes a record, also one that cannot be read. False when its run is still running, or when
    /// it cannot be deleted.
    bool remove(int number) const;

    /// Gives records that were interrupted the end that can be told from their messages.
    void closeInterrupted() const;

    /// Deletes the oldest records, until the rest is inside the limits; the newest one stays.
    /// Returns how many it has deleted.
    int prune(const Limits& limits) const;

    /// Bytes.
    qint64 size() const;

private:
    QString path(int number) const;
    Addition moveIn(const QString& newFolder) const;
    void removeLeft() const;

    QString m_folder;
};
