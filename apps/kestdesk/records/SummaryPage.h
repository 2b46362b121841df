// SPDX-License-Identifier: MIT
#pragma once

#include "RunRecord.h"

#include <QTextBrowser>

/// The first page of a record: outcome, time, place and files of the run.
class SummaryPage : public QTextBrowser
{
    Q_OBJECT

public:
    /// The state of a file now, compared with the record.
    enum class FileState {
        Unknown, ///< not compared yet
        Same,
        Changed,
        Gone
    };

    explicit SummaryPage(QWidget* parent);

    /// The states belong to the record's files in order, with the model's state at the end; may be
    /// empty while they are unknown.
    void show(const RunRecord& record, const QVector<FileState>& states);

    /// Compares the files and the model with the record. Waits for the disk.
    static QVector<FileState> fileStates(const RunRecord& record);
};
