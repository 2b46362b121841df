// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

class QFileInfo;

/// Queries the system's process table.
namespace RunningProcesses {

/// The name space of process ids: this host, or a container with its own process ids.
QByteArray host();

/// A text that changes with every boot of the host; empty if the system has none.
QByteArray boot();

/// The process id of this process.
qint64 ownId();

/// The start time of a process, in a unit of the system. Together with the id it identifies the
/// process. 0 if there is no such process; nothing if the system cannot tell.
std::optional<quint64> startTime(qint64 processId);

/// Whether a process was killed but has not ended yet. False if unknown.
bool isEnding(qint64 processId);

/// The parent of a process; 0 if there is no such process or the parent is unknown.
qint64 parentOf(qint64 processId);

/// Whether any process has an argument with this suffix; false if the system cannot tell.
bool haveArgumentEndingWith(const QString& end);

/// Whether the file belongs to the user of this process.
bool isOwnFile(const QFileInfo& file);

/// Whether the folder belongs to the user of this process, and no other user may write into it.
bool isPrivateFolder(const QFileInfo& folder);

} // namespace RunningProcesses
