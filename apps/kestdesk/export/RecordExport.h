#pragma once

#include <QtGlobal>

class QString;
struct RunRecord;

/// Puts a record into one file for somebody else, such as the support.
namespace RecordExport {

/// Bytes of result files that an export has by default.
constexpr qint64 usualResultBytes = 100'000'000;

/// Writes a zip file with the record, a summary of it, its messages, the copies of the model and of
/// the machines file, and the files that the run has written, up to that many bytes. README.txt
/// inside says what each is, and what was left out and why. The file is written in one step. False,
/// with the reason as a clause in `problem`, when it cannot be written. Waits for the disk.
bool exportRecord(const RunRecord& record, const QString& zipPath, QString& problem,
                  qint64 mostResultBytes = usualResultBytes);

} // namespace RecordExport
