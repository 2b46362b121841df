// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

class QString;
struct RunRecord;

/// Exports a record to one file for other people, such as the support.
namespace RecordExport {

/// Default limit for the result files in an export, in bytes.
constexpr qint64 usualResultBytes = 100'000'000;

/// Writes a zip file with the record, its summary, its messages, the copies of the model and of the
/// machines file, and the files that the run has written, up to `mostResultBytes`. Its README.txt
/// describes each entry, and says what was left out and why. The file is written in one step. On
/// failure returns false, with the reason as a clause in `problem`. Waits for the disk.
bool exportRecord(const RunRecord& record, const QString& zipPath, QString& problem,
                  qint64 mostResultBytes = usualResultBytes);

} // namespace RecordExport
