#pragma once

#include "RecordedMessage.h"
#include "RunRecord.h"

/// A record for readers: how the run was started, how it ended and why, what it warned of, and what
/// it wrote.
namespace RunSummary {

/// A line of it. The text may have come from outside.
struct Line
{
    enum class Kind { Plain, Valid, Fault, Stopped, Error, Warning, Notice };

    QString text;
    Kind kind = Kind::Plain;
};

/// Which of the messages follow the facts.
enum class Messages {
    Findings, ///< errors, warnings and notices, the last lines of the output
    Output,   ///< all lines of output, and nothing else
    All       ///< all messages, each with its time
};

/// Reads the messages of the record: waits for the disk.
QVector<Line> of(const RunRecord& record, Messages messages = Messages::Findings);

/// The same in one text.
QByteArray text(const RunRecord& record);

/// The local time of a point in time, to the second.
QString time(const QDateTime& time);

/// The kind that goes with a state.
Line::Kind kind(RunRecord::State state);

} // namespace RunSummary
