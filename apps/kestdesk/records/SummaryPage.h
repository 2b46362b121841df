#pragma once

#include "RunRecord.h"

#include <QTextBrowser>

/// What became of a run, when and where, in short: the first page of its record.
class SummaryPage : public QTextBrowser
{
    Q_OBJECT

public:
    /// What is known of a file now.
    enum class FileState {
        Unknown, ///< it is still being looked at
        Same,
        Changed,
        Gone
    };

    explicit SummaryPage(QWidget* parent);

    /// The states are those of the record's files, of which the last one is the model's; they may
    /// be empty.
    void show(const RunRecord& record, const QVector<FileState>& states);

    /// Compares the record's files and its model with what is there: waits for the disk.
    static QVector<FileState> fileStates(const RunRecord& record);
};
