#pragma once

#include "RunRecord.h"

#include <optional>

/// The files of a record: each run has a folder of its own, so that a crash can only concern the
/// record that is being written, and several programs can write without waiting for each other.
class RecordFolder
{
public:
    explicit RecordFolder(QString path);

    QString path() const { return m_path; }
    QString messagesFile() const;

    /// The record; nothing when there is none. Without a number.
    std::optional<RunRecord> read() const;

    /// Differs once a part has been written since; 0 when there is no record. Asks for no content.
    qint64 stamp() const;

    /// Write a part in one step. False, with a reason, when that cannot be done.
    bool writeStart(const RunRecord& record);
    bool writeEnd(const RunRecord& record);
    bool writeFile(const QString& name, const QByteArray& content);

    /// Of the last call, as a clause.
    QString reason() const { return m_reason; }

private:
    QString m_path;
    QString m_reason;
};
