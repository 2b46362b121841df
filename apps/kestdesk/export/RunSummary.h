// SPDX-License-Identifier: MIT
#pragma once

#include "RecordedMessage.h"
#include "RunRecord.h"

/// A readable summary of a record: how the run was started, how it ended and why, its findings, and
/// its files.
namespace RunSummary {

/// A line of the summary. The text may contain control characters from outside.
struct Line
{
    enum class Kind { Plain, Valid, Fault, Stopped, Error, Warning, Notice };

    QString text;
    Kind kind = Kind::Plain;
};

/// The messages that follow the facts.
enum class Messages {
    Findings, ///< errors, warnings and notices, the last lines of the output
    Output,   ///< all lines of output, and nothing else
    All       ///< all messages, each with its time
};

/// Reads the messages of the record: waits for the disk.
QVector<Line> of(const RunRecord& record, Messages messages = Messages::Findings);

/// The whole summary as one text, in UTF-8.
QByteArray text(const RunRecord& record);

/// Formats a time as local time, to the second.
QString time(const QDateTime& time);

/// The kind of line for a state.
Line::Kind kind(RunRecord::State state);

} // namespace RunSummary
