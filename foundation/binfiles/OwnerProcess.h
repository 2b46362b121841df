// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// Processes of this machine, which may hold locks.
namespace OwnerProcess {

/// The file name of the process's program; empty if it is unknown.
QString program(qint64 process);

/// Whether the process has ended, or its id now belongs to another program. False if unknown.
bool hasEnded(qint64 process, const QString& program);

/// Whether the process was killed but has not ended yet. False if unknown.
bool isEnding(qint64 process);

} // namespace OwnerProcess
