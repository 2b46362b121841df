// SPDX-License-Identifier: MIT
#include "RecordWriter.h"

#include "RecordJournal.h"

#include <QDeadlineTimer>

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <optional>
#include <utility>

namespace {

using namespace std::chrono_literals;

constexpr auto interval = 200ms;      // between two writes
constexpr auto syncInterval = 1000ms; // between two syncs to the disk
constexpr qint64 usualMostBytes = 64 << 20;

} // namespace

// The state that both threads use. The writing thread keeps it alive if it is detached.
struct RecordWriter::Shared
{
    explicit Shared(RunArchive theArchive) : archive(std::move(theArchive)) {}

    const RunArchive archive;
    qint64 mostBytes = usualMostBytes;
    RunRecord start;
    QByteArray machines; // content of the machines file

    std::mutex mutex; // guards the members below
    std::condition_variable changed;
    QVector<RecordedMessage> messages;
    qint64 waiting = 0;   // characters in the queued messages
    int omittedLines = 0; // left out because too many messages are queued
    std::optional<RunRecord> end;
    RunArchive::Limits limits;
    RecordWriter* writer = nullptr; // null after its destruction
    bool isAbandoned = false;       // finish() will not be called
    bool isClosed = false;          // nothing more is written

    // Emits a signal of the writer in the writer's thread.
    template <typename Signal, typename... Arguments>
    void emitLater(Signal signal, Arguments... arguments)
    {
        const std::lock_guard<std::mutex> lock(mutex);
        if (RecordWriter* const target = writer) {
            QMetaObject::invokeMethod(
                target, [=] { (target->*signal)(arguments...); }, Qt::QueuedConnection);
        }
    }

    // A slow disk must not fill the memory.
    void add(const RecordedMessage& message)
    {
        const std::lock_guard<std::mutex> lock(mutex);
        if (isClosed || waiting > mostBytes) {
            ++omittedLines;
            return;
        }
        waiting += message.text.size();
        messages.append(message);
    }

    QVector<RecordedMessage> takeMessages()
    {
        const std::lock_guard<std::mutex> lock(mutex);
        waiting = 0;
        return std::exchange(messages, {});
    }

    int takeOmittedLines()
    {
        const std::lock_guard<std::mutex> lock(mutex);
        return std::exchange(omittedLines, 0);
    }

    // Blocks until the end or until the next write is due. Returns true if no more messages will
    // come.
    bool wait()
    {
        std::unique_lock<std::mutex> lock(mutex);
        changed.wait_for(lock, interval, [this] { return end || isAbandoned; });
        return end || isAbandoned;
    }

    void abandon()
    {
        const std::lock_guard<std::mutex> lock(mutex);
        writer = nullptr;
        isAbandoned = true;
        changed.notify_all();
    }

    void setClosed()
    {
        const std::lock_guard<std::mutex> lock(mutex);
        isClosed = true;
    }
};

RecordWriter::RecordWriter(RunArchive archive, QObject* parent)
    : QObject(parent), m_shared(std::make_shared<Shared>(std::move(archive)))
{
    m_shared->writer = this;
}

RecordWriter::~RecordWriter()
{
    m_shared->abandon();
    m_thread.end();
}

void RecordWriter::setMostBytes(qint64 bytes)
{
    m_shared->mostBytes = bytes;
}

void RecordWriter::begin(const RunRecord& record, const QString& machinesFile)
{
    m_shared->start = record;
    m_shared->machines = RunArchive::machinesOf(machinesFile);
    m_thread.start([shared = m_shared] { work(*shared); });
}

void RecordWriter::append(const RecordedMessage& message)
{
    m_shared->add(message);
}

void RecordWriter::finish(const RunRecord& record, const RunArchive::Limits& limits)
{
    const std::lock_guard<std::mutex> lock(m_shared->mutex);
    m_shared->end = record;
    m_shared->limits = limits;
    m_shared->changed.notify_all();
}

void RecordWriter::work(Shared& shared)
{
    const RunArchive::Addition addition =
        shared.archive.addWithMachines(shared.start, shared.machines);
    if (addition.number > 0) {
        shared.emitLater(&RecordWriter::created, addition.number);
        follow(shared, addition.folder);
    } else {
        shared.emitLater(&RecordWriter::failed, addition.problem);
    }
    shared.emitLater(&RecordWriter::finished);
    shared.setClosed();
}

void RecordWriter::follow(Shared& shared, const QString& folder)
{
    RecordJournal journal(folder, shared.mostBytes);
    QDeadlineTimer nextSync(syncInterval);
    bool isWhole = true;
    for (bool isLast = false; !isLast;) {
        isLast = shared.wait();
        journal.omit(shared.takeOmittedLines());
        const bool isWritten = journal.write(shared.takeMessages());
        if (isWhole && !isWritten) {
            shared.emitLater(&RecordWriter::failed, journal.reason());
        }
        isWhole = isWritten;
        if (nextSync.hasExpired()) {
            journal.sync();
            nextSync.setRemainingTime(syncInterval);
        }
    }
    close(shared, journal);
}

// If the program ends before its run, the record gets no end, and the next program marks the run as
// interrupted.
void RecordWriter::close(Shared& shared, RecordJournal& journal)
{
    if (!shared.end) {
        journal.sync();
        return;
    }
    if (!journal.finish(*shared.end)) {
        shared.emitLater(&RecordWriter::failed, journal.reason());
    }
    shared.archive.prune(shared.limits);
}
