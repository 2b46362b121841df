// SPDX-License-Identifier: MIT
#pragma once

#include "MessageTotals.h"
#include "RecordFolder.h"

#include <QFile>
#include <QVector>

/// Writes the messages and the end of one record. All operations wait for the disk.
class RecordJournal
{
public:
    explicit RecordJournal(const QString& folder, qint64 mostBytes);

    /// Appends messages to the file. On failure returns false, sets reason() and writes nothing any
    /// more.
    bool write(const QVector<RecordedMessage>& messages);

    /// Counts messages that the caller has left out.
    void omit(int messages) { m_omittedLines += messages; }

    /// Syncs the file to the disk, if anything was written since the last sync.
    void sync();

    /// Writes how the run ended. On failure returns false and sets reason().
    bool finish(RunRecord record);

    /// Why the last operation failed, as a clause.
    QString reason() const { return m_reason; }

private:
    bool hasRoomFor(RecordedMessage::Type type) const;
    bool fail(const QString& reason);
    void copyTables(RunRecord& record);

    RecordFolder m_folder;
    QFile m_file;
    qint64 m_mostBytes;
    qint64 m_bytes = 0;
    bool m_isSynced = true;
    int m_omittedLines = 0;
    MessageTotals m_totals;
    QString m_reason;
};
