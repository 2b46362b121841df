#pragma once

#include <QSet>

#include <functional>

/// The processes that this program started, and those that they started.
namespace Descendants {

/// From now on processes whose parent ends become this program's own, where the platform has such
/// a thing, so that none gets lost.
void adoptOrphans();

/// Calls what starts programs that are to outlive this one: they do not count among the processes.
void startDetached(const std::function<void()>& start);

/// Whether one of them is alive.
bool areAlive();

/// Whether one pass over the system's processes finds one; areAlive() is the one to ask.
bool isAnySeen();

/// Kills all of them. They are gone when areAlive() says so.
void killAll();

/// This program's children that have ended while nobody has asked for their exit codes; none on a
/// platform that keeps no such processes.
QSet<qint64> endedChildren();

} // namespace Descendants
