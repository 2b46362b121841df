// SPDX-License-Identifier: MIT
#pragma once

#include "RunRecord.h"

#include <QPair>
#include <QString>
#include <QStringList>
#include <QVector>

/// The command that starts a recorded run in a terminal: for a POSIX shell, on Windows for cmd.
namespace ShellCommand {

/// Names and values.
using Variables = QVector<QPair<QString, QString>>;

/// Quotes a text as one word of the shell.
QString quoted(const QString& word);

/// The line that starts a program in a folder with additional variables. The first word is the
/// program.
QString line(const QString& folder, const Variables& variables, const QStringList& words);

/// The command as one line: with the folder, the environment, the program and the arguments of the
/// run. The machines file is the copy in the record, because the run's own copy has been deleted.
QString of(const RunRecord& record);

} // namespace ShellCommand
