#pragma once

#include "RunRecord.h"

#include <QString>

/// The command by which a recorded run is started in a terminal.
namespace ShellCommand {

/// A word that a POSIX shell takes for exactly this text.
QString quoted(const QString& word);

/// One line: in the folder of the run, with its environment, its program and its arguments. The
/// machines file, whose copy for the run is gone, is the one in the record.
QString of(const RunRecord& record);

} // namespace ShellCommand
