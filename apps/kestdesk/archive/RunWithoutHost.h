// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

struct RunRecord;

/// Repeats a recorded run without a host of its machines file: in the copy that the run gets, the
/// lines of the host are comments.
namespace RunWithoutHost {

/// Why the run cannot do without the host, as a sentence; empty when it can. Reads the record's
/// machines file.
QString obstacle(const RunRecord& record, const QString& host);

/// The lines of the record's machines file that become comments.
QStringList lines(const RunRecord& record, const QString& host);

/// The record of a run without the host, too.
RunRecord of(RunRecord record, const QString& host);

} // namespace RunWithoutHost
