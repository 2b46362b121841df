#pragma once

#include <RunRecord.h>
#include <Terminal.h>

/// A list of recorded runs in a terminal.
namespace RunListReport {

/// Which of the runs are listed.
struct Filter
{
    QString model; ///< name of a file, with wildcards, or a path; empty for all
    QString state; ///< the word; empty for all
    int most = 0;  ///< how many of the newest; 0 for all
};

QVector<RunRecord> filtered(const QVector<RunRecord>& records, const Filter& filter);

/// The words for states.
QStringList stateWords();

/// A line each, in columns.
void write(const QVector<RunRecord>& records, Terminal& terminal);

} // namespace RunListReport
