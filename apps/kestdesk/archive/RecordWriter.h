// SPDX-License-Identifier: MIT
#pragma once

#include "DetachableThread.h"
#include "RunArchive.h"

#include <QObject>

#include <memory>

class RecordJournal;
struct RecordedMessage;

/// Writes the record of one run in its own thread: a slow disk delays only the record. Appended
/// messages are in the file after at most one second, and synced to the disk after another one.
///
/// The signals are emitted in the thread that the writer lives in, from its event loop.
class RecordWriter : public QObject
{
    Q_OBJECT

public:
    explicit RecordWriter(RunArchive archive, QObject* parent = nullptr);

    /// Waits some seconds until everything is written. If the disk does not answer, the rest of the
    /// record is lost.
    ~RecordWriter() override;

    /// Sets the limit for the messages of a record, in bytes. Lines of output beyond it are omitted
    /// and counted; all other messages may take the same amount again. To be called before begin().
    void setMostBytes(qint64 bytes);

    /// Adds the record to the archive, with copies of the model and of the machines file, whose
    /// path may be empty. That is read at once: a run that ends soon deletes it. To be called once,
    /// before append() and finish().
    void begin(const RunRecord& record, const QString& machinesFile);

    void append(const RecordedMessage& message);

    /// Completes the record with the end of the run from the argument, with the counts and last
    /// lines of its messages and with the checksums of its files. Then prunes the archive.
    void finish(const RunRecord& record, const RunArchive::Limits& limits);

Q_SIGNALS:
    /// The archive has the record now.
    void created(int number);

    /// The record cannot be made or continued. The reason is a clause. The run is not affected.
    void failed(const QString& reason);

    /// Everything is written, or writing has failed.
    void finished();

private:
    struct Shared;
    static void work(Shared& shared);
    static void follow(Shared& shared, const QString& folder);
    static void close(Shared& shared, RecordJournal& journal);

    std::shared_ptr<Shared> m_shared;
    DetachableThread m_thread;
};
