#pragma once

#include "DiskThread.h"
#include "RunArchive.h"

#include <QObject>
#include <QTimer>

#include <memory>

/// Follows the archive of runs, whoever changes it: this program, another one, or the user with a
/// file manager. All reading and deleting is done in a thread of its own.
class ArchiveWatch : public QObject
{
    Q_OBJECT

public:
    /// Does nothing before start().
    explicit ArchiveWatch(RunArchive archive, QObject* parent = nullptr);
    ~ArchiveWatch() override;

    /// Gives interrupted records their end, deletes the oldest ones beyond the limits, reads all
    /// records, and then looks for changes at intervals.
    void start(const RunArchive::Limits& limits);

    /// Looks for changes at once.
    void refresh();

    /// Deletes the records, but those of running runs.
    void remove(const QVector<int>& numbers);

    /// Reads a record whole. The answer comes in this object's thread, unless the context is gone
    /// by then; nothing when there is no such record.
    using RecordAnswer = std::function<void(const std::optional<RunRecord>& record)>;
    void read(int number, QObject* context, const RecordAnswer& answer);

Q_SIGNALS:
    /// Records are new or different. They are without launch options and without last lines, which
    /// lists do not show; of running ones the counts of messages and the progress are up to date.
    void changed(const QVector<RunRecord>& records);

    /// Records are no longer there.
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
    bool m_isWanted = false; ///< once more
    bool m_isLoaded = false;
    QTimer m_timer;
    DiskThread m_disk; ///< the first to go
};
