#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

class QFileInfo;

/// What the system knows of processes.
namespace RunningProcesses {

/// Where process ids count: this host, or the part of it that numbers its processes by itself.
QByteArray host();

/// Another text after every start of the host; empty where the system has no such thing.
QByteArray boot();

/// The process id of this process.
qint64 ownId();

/// When a process was started, in a unit of the system's: together with its id it is that process
/// and no later one. 0 when there is no such process; nothing where the system does not tell it.
std::optional<quint64> startTime(qint64 processId);

/// Whether a process is about to end because it was killed. False in doubt.
bool isEnding(qint64 processId);

/// The parent of a process; 0 when there is no such process, or where that cannot be known.
qint64 parentOf(qint64 processId);

/// Whether a process has an argument that ends with this; false where the system does not tell it.
bool haveArgumentEndingWith(const QString& end);

/// Whether the file belongs to the user of this process.
bool isOwnFile(const QFileInfo& file);

} // namespace RunningProcesses
