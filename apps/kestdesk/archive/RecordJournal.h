#pragma once

#include "MessageTotals.h"
#include "RecordFolder.h"

#include <QFile>
#include <QVector>

/// Writes the messages and the end of one record. Everything here waits for the disk.
class RecordJournal
{
public:
    explicit RecordJournal(const QString& folder, qint64 mostBytes);

    /// Adds messages to the file. False, with a reason, when they cannot be written; then nothing
    /// more is written.
    bool write(const QVector<RecordedMessage>& messages);

    /// Counts messages that were left out before they came here.
    void omit(int messages) { m_omittedLines += messages; }

    /// Puts what was written onto the disk; nothing when it is there.
    void sync();

    /// Writes how the run ended. False with a reason when it cannot be written.
    bool finish(RunRecord record);

    /// Of the last failure, as a clause.
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
