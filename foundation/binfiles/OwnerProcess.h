#pragma once

#include <QString>

/// Processes of this machine, which may hold locks.
namespace OwnerProcess {

/// The file name of the program that the process runs; empty when it is not known.
QString program(qint64 process);

/// Whether the process has ended, or its number belongs to another program by now. False in doubt.
bool hasEnded(qint64 process, const QString& program);

/// Whether the process is about to end because it was killed. False in doubt.
bool isEnding(qint64 process);

} // namespace OwnerProcess
