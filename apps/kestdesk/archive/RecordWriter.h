#pragma once

#include "RunArchive.h"

#include <QObject>

#include <memory>
#include <thread>

class RecordJournal;
struct RecordedMessage;

/// Writes the record of one run, in a thread of its own: a slow disk delays the record and nothing
/// else. What was appended is in the file at the latest after a second, and on the disk after
/// another one.
///
/// The signals come from the event loop of the thread that the writer lives in.
class RecordWriter : public QObject
{
    Q_OBJECT

public:
    explicit RecordWriter(RunArchive archive, QObject* parent = nullptr);

    /// Waits for what is still to be written, though not for ever: a disk that does not answer
    /// costs the rest of the record.
    ~RecordWriter() override;

    /// Of a record, in bytes. Lines of output beyond it are left out and counted; of all other
    /// messages there may be as much again. To be set before begin().
    void setMostBytes(qint64 bytes);

    /// Adds the record to the archive, with copies of the model and of the machines file, whose
    /// path may be empty. To be called once, and before the others.
    void begin(const RunRecord& record, const QString& machinesFile);

    void append(const RecordedMessage& message);

    /// Completes the record: with how the run ended, which the record says, and with the counts and
    /// last lines of its messages and the checksums of its files. Then prunes the archive.
    void finish(const RunRecord& record, const RunArchive::Limits& limits);

Q_SIGNALS:
    /// The archive has the record now.
    void created(int number);

    /// The record cannot be made or continued, for that reason, a clause. The run is
    /// not affected.
    void failed(const QString& reason);

    /// All is written, or has failed.
    void finished();

private:
    struct Shared;
    static void work(const std::shared_ptr<Shared>& shared);
    static void follow(Shared& shared, const QString& folder);
    static void close(Shared& shared, RecordJournal& journal);

    std::shared_ptr<Shared> m_shared;
    std::thread m_thread;
};
