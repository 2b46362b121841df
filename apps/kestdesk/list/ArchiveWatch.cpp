// SPDX-License-Identifier: MIT
#include "ArchiveWatch.h"

#include "InterruptedRun.h"
#include "MessageReader.h"
#include "MessageTotals.h"
#include "RecordFolder.h"

#include <QDir>
#include <QHash>
#include <QPointer>

#include <algorithm>
#include <utility>

namespace {

constexpr int interval = 1000; // milliseconds between two looks
constexpr int atOnce = 100;    // records in an answer

// Drops what lists do not show: it takes most of the memory.
void slim(RunRecord& record)
{
    record.launchOptions.clear();
    record.lastLines.clear();
}

} // namespace

// The state of the archive at the last look. Only used by jobs of the thread.
struct ArchiveWatch::Reader
{
    explicit Reader(RunArchive theArchive) : archive(std::move(theArchive)) {}

    /// The state of a record.
    struct Known
    {
        qint64 stamp = 0;
        bool isFinal = false;
        std::shared_ptr<MessageReader> messages; // only of a running one
        MessageTotals totals;
    };

    const RunArchive archive;
    QHash<int, Known> known;

    std::optional<RunRecord> readIfChanged(int number);
    bool follow(Known& record, const QString& file);
    QVector<int> takeMissing(const QVector<int>& numbers);
};

// For a running record, adds the totals of its messages.
std::optional<RunRecord> ArchiveWatch::Reader::readIfChanged(int number)
{
    RecordFolder folder(QDir(archive.folder()).filePath(QString::number(number)));
    const qint64 stamp = folder.stamp();
    Known& entry = known[number];
    const bool isSame = entry.stamp == stamp;
    if (isSame && entry.isFinal) {
        return std::nullopt;
    }
    if (!isSame) {
        entry = Known();
        entry.stamp = stamp;
    }
    auto record = archive.recordOrDamaged(number);
    if (record && record->state == RunRecord::State::Interrupted && record->outcome.isEmpty()) {
        InterruptedRun::close(folder.path());
        record = archive.record(number);
    }
    if (!record) {
        return std::nullopt;
    }
    entry.isFinal = record->state != RunRecord::State::Running;
    if (!entry.isFinal && !follow(entry, folder.messagesFile()) && isSame) {
        return std::nullopt;
    }
    if (!entry.isFinal) {
        entry.totals.fill(*record);
    }
    slim(*record);
    return record;
}

// Returns false if nothing is new.
bool ArchiveWatch::Reader::follow(Known& record, const QString& file)
{
    if (!record.messages) {
        record.messages = std::make_shared<MessageReader>(file);
    }
    bool isNew = false;
    while (record.messages->read(
        [&record](const RecordedMessage& message) { record.totals.add(message); })) {
        isNew = true;
    }
    return isNew;
}

QVector<int> ArchiveWatch::Reader::takeMissing(const QVector<int>& numbers)
{
    QVector<int> missing;
    for (auto each = known.begin(); each != known.end();) {
        if (std::binary_search(numbers.cbegin(), numbers.cend(), each.key())) {
            ++each;
        } else {
            missing.append(each.key());
            each = known.erase(each);
        }
    }
    return missing;
}

ArchiveWatch::ArchiveWatch(RunArchive archive, QObject* parent)
    : QObject(parent), m_reader(std::make_shared<Reader>(std::move(archive)))
{
    m_timer.setInterval(interval);
    connect(&m_timer, &QTimer::timeout, this, &ArchiveWatch::refresh);
}

ArchiveWatch::~ArchiveWatch() = default;

void ArchiveWatch::start(const RunArchive::Limits& limits)
{
    m_disk.post([reader = m_reader, limits](const DiskThread::Answer&) {
        reader->archive.closeInterrupted();
        reader->archive.prune(limits);
    });
    m_timer.start();
    refresh();
}

// On a slow disk at most one look is queued.
void ArchiveWatch::refresh()
{
    if (std::exchange(m_isWanted, true) || m_isLooking) {
        return;
    }
    look();
}

void ArchiveWatch::look()
{
    m_isWanted = false;
    m_isLooking = true;
    m_disk.post([this, reader = m_reader](const DiskThread::Answer& answer) {
        const QVector<int> numbers = reader->archive.numbers();
        const QVector<int> missing = reader->takeMissing(numbers);
        if (!missing.isEmpty()) {
            answer([this, missing] { Q_EMIT removed(missing); });
        }
        QVector<RunRecord> records;
        const auto send = [this, &records, &answer] {
            if (!records.isEmpty()) {
                answer([this, sent = std::exchange(records, {})] { Q_EMIT changed(sent); });
            }
        };
        for (auto number = numbers.crbegin(); number != numbers.crend(); ++number) {
            if (auto record = reader->readIfChanged(*number)) {
                records.append(std::move(*record));
            }
            if (records.size() == atOnce) {
                send();
            }
        }
        send();
        answer([this] {
            m_isLooking = false;
            if (!std::exchange(m_isLoaded, true)) {
                Q_EMIT loaded();
            }
            if (m_isWanted) {
                look();
            }
        });
    });
}

void ArchiveWatch::remove(const QVector<int>& numbers)
{
    m_disk.post([this, reader = m_reader, numbers](const DiskThread::Answer& answer) {
        QVector<int> kept;
        std::copy_if(numbers.cbegin(), numbers.cend(), std::back_inserter(kept),
                     [&reader](int number) { return !reader->archive.remove(number); });
        answer([this, kept] {
            if (!kept.isEmpty()) {
                Q_EMIT notRemoved(kept);
            }
            refresh();
        });
    });
}

void ArchiveWatch::read(int number, QObject* context, const RecordAnswer& answer)
{
    m_disk.post([reader = m_reader, number, guard = QPointer<QObject>(context),
                 answer](const DiskThread::Answer& send) {
        const auto record = reader->archive.record(number);
        send([record, guard, answer] {
            if (!guard.isNull()) {
                answer(record);
            }
        });
    });
}
