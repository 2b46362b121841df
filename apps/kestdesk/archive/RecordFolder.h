// SPDX-License-Identifier: MIT
#pragma once

#include "RunRecord.h"

#include <optional>

/// The files of a record. Each run has its own folder, so that a crash can only damage the record
/// that is being written, and several programs can write at the same time.
class RecordFolder
{
public:
    explicit RecordFolder(QString path);

    QString path() const { return m_path; }
    QString messagesFile() const;

    /// The record, without its number; nothing if there is none.
    std::optional<RunRecord> read() const;

    /// What is known of a record that cannot be read, in the state Damaged; nothing if the folder
    /// does not exist.
    std::optional<RunRecord> readDamaged() const;

    /// A value that changes whenever a part is written; 0 if there is no record. Does not read the
    /// content.
    qint64 stamp() const;

    /// Write a part in one step. On failure return false and set reason().
    bool writeStart(const RunRecord& record);
    bool writeEnd(const RunRecord& record);
    bool writeFile(const QString& name, const QByteArray& content);

    /// Why the last call failed, as a clause.
    QString reason() const { return m_reason; }

private:
    QString m_path;
    QString m_reason;
};
