// SPDX-License-Identifier: MIT
#pragma once

#include "DiskThread.h"
#include "RunArchive.h"

#include <QObject>
#include <QTimer>

#include <memory>

/// Watches the run archive for changes by this program, by other programs and by the user's file
/// manager. Reads and deletes in its own thread.
class ArchiveWatch : public QObject
{
    Q_OBJECT

public:
    /// Does nothing before start().
    explicit ArchiveWatch(RunArchive archive, QObject* parent = nullptr);
    ~ArchiveWatch() override;

    /// Completes interrupted records, deletes the oldest ones beyond the limits, reads all records,
    /// and then looks for changes at intervals.
    void start(const RunArchive::Limits& limits);

    /// Looks for changes at once.
    void refresh();

    /// Deletes the records with these numbers, except those of running runs.
    void remove(const QVector<int>& numbers);

    /// Reads a complete record. The answer is called in this object's thread, unless the context
    /// has been destroyed by then; with nothing if there is no such record.
    using RecordAnswer = std::function<void(const std::optional<RunRecord>& record)>;
    void read(int number, QObject* context, const RecordAnswer& answer);

Q_SIGNALS:
    /// Records are new or have changed. They lack the launch options and the last lines, which
    /// lists do not show. Message counts and progress of running ones are up to date.
    void changed(const QVector<RunRecord>& records);

    /// Records have been deleted.
    void removed(const QVector<int>& numbers);

    /// All records have been read for the first time.
    void loaded();

    /// These records could not be deleted.
    void notRemoved(const QVector<int>& numbers);

private:
    struct Reader;

    void look();

    std::shared_ptr<Reader> m_reader;
    bool m_isLooking = false;
    bool m_isWanted = false; ///< another look was requested during the current one
    bool m_isLoaded = false;
    QTimer m_timer;
    DiskThread m_disk; ///< destroyed first
};
