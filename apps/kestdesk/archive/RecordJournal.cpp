// SPDX-License-Identifier: MIT
#include "RecordJournal.h"

#include <Clause.h>
#include <FileSync.h>
#include <InputFile.h>
#include <ResultTable.h>
#include <WriteAll.h>

#include <QCryptographicHash>

namespace {

constexpr qint64 largestCopy = 1 << 20; // of a table
constexpr int mostCopies = 20;

void addChecksum(RunRecord::File& entry)
{
    QFile file(entry.path);
    QCryptographicHash hash(QCryptographicHash::Sha256);
    if (entry.size >= 0 && file.open(QIODevice::ReadOnly) && hash.addData(&file)) {
        entry.checksum = QString::fromLatin1(hash.result().toHex());
    }
}

} // namespace

RecordJournal::RecordJournal(const QString& folder, qint64 mostBytes)
    : m_folder(folder), m_file(m_folder.messagesFile()), m_mostBytes(mostBytes)
{
    if (!m_file.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Unbuffered)) {
        fail(suite::clause(m_file.errorString()));
    }
}

bool RecordJournal::fail(const QString& reason)
{
    m_reason = QStringLiteral("%1 cannot be written: %2").arg(m_file.fileName(), reason);
    return false;
}

// Messages that explain a run have priority.
bool RecordJournal::hasRoomFor(RecordedMessage::Type type) const
{
    const bool isOutput =
        type == common_IProcessMessage::Output || type == common_IProcessMessage::LineFeed;
    return m_bytes < (isOutput ? m_mostBytes : 2 * m_mostBytes);
}

bool RecordJournal::write(const QVector<RecordedMessage>& messages)
{
    QByteArray lines;
    for (const RecordedMessage& message : messages) {
        m_totals.add(message);
        if (hasRoomFor(message.type)) {
            const QByteArray line = message.toLine();
            m_bytes += line.size();
            lines += line;
        } else {
            ++m_omittedLines;
        }
    }
    if (!m_reason.isEmpty()) {
        return false;
    }
    m_isSynced = m_isSynced && lines.isEmpty();
    return suite::writeAll(m_file, lines) || fail(suite::clause(m_file.errorString()));
}

// A failed sync is retried the next time.
void RecordJournal::sync()
{
    if (!m_isSynced) {
        m_isSynced = syncToDisk(m_file);
    }
}

bool RecordJournal::finish(RunRecord record)
{
    sync();
    m_totals.fill(record);
    record.omittedLines = m_omittedLines;
    record.gap = m_reason;
    for (RunRecord::File& file : record.files) {
        addChecksum(file);
    }
    copyTables(record);
    if (m_folder.writeEnd(record)) {
        return true;
    }
    m_reason = m_folder.reason();
    return false;
}

// Copied because the next run on the model overwrites them: copies can be compared.
void RecordJournal::copyTables(RunRecord& record)
{
    int copies = 0;
    for (RunRecord::File& file : record.files) {
        if (file.size <= 0 || file.size > largestCopy || copies == mostCopies ||
            !suite::ResultTable::isTable(file.path)) {
            continue;
        }
        const auto content = suite::InputFile(file.path).read(largestCopy);
        const QString name = QStringLiteral("table-%1.csv").arg(copies + 1);
        if (content && m_folder.writeFile(name, *content)) {
            file.copy = name;
            ++copies;
        }
    }
}
