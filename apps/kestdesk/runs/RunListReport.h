// SPDX-License-Identifier: MIT
#pragma once

#include <RunRecord.h>
#include <Terminal.h>

/// Writes a list of recorded runs to a terminal.
namespace RunListReport {

/// The runs to list.
struct Filter
{
    QString model; ///< file name with wildcards, or path; empty for all
    QString state; ///< word of the state; empty for all
    int most = 0;  ///< number of newest runs; 0 for all
};

QVector<RunRecord> filtered(const QVector<RunRecord>& records, const Filter& filter);

/// The words of all states.
QStringList stateWords();

/// Writes one line for each record, in columns.
void write(const QVector<RunRecord>& records, Terminal& terminal);

} // namespace RunListReport
