// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

class QProcess;

/// Asks console programs on Windows to end, by the console event of Ctrl+Break. There
/// QProcess::terminate() reaches windows only.
///
/// Does nothing on Unix, where QProcess::terminate() sends a signal that all programs know.
namespace ConsoleBreak {

/// Prepares a process, which must not be started yet, to be the first of a process group: the event
/// is sent to a group. Ctrl+C in a console does not reach the processes of the group.
void prepare(QProcess& process);

/// Sends the event to the group whose first process has this id. False if that is not possible, as
/// for a process without a console; on Unix always true.
bool send(qint64 process);

} // namespace ConsoleBreak
