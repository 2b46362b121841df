// SPDX-License-Identifier: MIT
#pragma once

#include "RunRecord.h"

#include <QString>

/// The command that starts a recorded run in a terminal.
namespace ShellCommand {

/// Quotes a text as one word of a POSIX shell.
QString quoted(const QString& word);

/// The command as one line: with the folder, the environment, the program and the arguments of the
/// run. The machines file is the copy in the record, because the run's own copy has been deleted.
QString of(const RunRecord& record);

} // namespace ShellCommand
