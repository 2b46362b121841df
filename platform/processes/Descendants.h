#pragma once

#include <QSet>

#include <functional>

/// The processes that this program started, and those that they started.
namespace Descendants {

/// From now on processes whose parent ends become children of this program, where the system can do
/// that, so that none gets lost.
void adoptOrphans();

/// Calls a function that starts programs which shall outlive this one: they are not counted among
/// the processes.
void startDetached(const std::function<void()>& start);

/// Whether one of them is alive.
bool areAlive();

/// Whether one pass over the system's processes finds one; areAlive() is the one to ask.
bool isAnySeen();

/// Kills all of them. They have ended when areAlive() says so.
void killAll();

/// The children of this program that have ended and whose exit codes were not asked for yet; none
/// on a system that keeps no such processes.
QSet<qint64> endedChildren();

} // namespace Descendants
