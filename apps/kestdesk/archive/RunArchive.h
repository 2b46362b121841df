// SPDX-License-Identifier: MIT
#pragma once

#include "RunRecord.h"

#include <QString>
#include <QVector>

#include <optional>

/// The records of the user's runs, each in its own subfolder of one folder. Several programs may
/// use the archive at once. Stateless: every call accesses the disk and may be made from any
/// thread.
class RunArchive
{
public:
    /// The limits of the archive. Running runs do not count.
    struct Limits
    {
        int days = 0;
        int megabytes = 0;
    };

    explicit RunArchive(QString folder);

    /// The archive of this user, beside the settings.
    static RunArchive ofUser();

    QString folder() const { return m_folder; }

    /// The numbers of all records, in ascending order.
    QVector<int> numbers() const;

    /// All readable records, the newest first.
    QVector<RunRecord> records() const;

    /// All records with the damaged ones, the newest first.
    QVector<RunRecord> allRecords() const;

    /// A record; nothing if it does not exist or cannot be read.
    std::optional<RunRecord> record(int number) const;

    /// A record, or what is known of a damaged one; nothing if it does not exist.
    std::optional<RunRecord> recordOrDamaged(int number) const;

    /// Result of add().
    struct Addition
    {
        int number = 0; ///< 0 on failure
        QString folder;
        QString problem; ///< why add() failed, as a clause
    };

    /// Adds a record of a run that starts now, with a copy of its model and, unless the path is
    /// empty, of its machines file.
    Addition add(const RunRecord& record, const QString& machinesFile) const;

    /// The same with the content of the machines file; null without one.
    Addition addWithMachines(RunRecord record, const QByteArray& machines) const;

    /// The content of a machines file as a record keeps it; null if it cannot be read.
    static QByteArray machinesOf(const QString& machinesFile);

    /// Deletes a record, even an unreadable one. False if its run still runs or if it cannot be
    /// deleted.
    bool remove(int number) const;

    /// Completes the records of interrupted runs with an end derived from their messages.
    void closeInterrupted() const;

    /// Deletes the oldest records until the rest is within the limits; the newest one stays.
    /// Returns the number of deleted records.
    int prune(const Limits& limits) const;

    /// Size of all records, in bytes.
    qint64 size() const;

private:
    QString path(int number) const;
    Addition moveIn(const QString& newFolder) const;
    void removeLeft() const;

    QString m_folder;
};
