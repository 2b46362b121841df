// SPDX-License-Identifier: MIT
#pragma once

#include <QSet>

#include <functional>

/// The child processes of this program, and their descendants.
namespace Descendants {

/// From now on descendants whose parent ends become children of this program, if the system
/// supports that, so that they can still be found.
void adoptOrphans();

/// Descendants that are started from now on end with this program, however and whenever it ends.
/// Does nothing on Unix, where each component notices the end of the program that has started it.
void bindToThisProgram();

/// Calls a function that starts programs which may outlive this one: these do not count as
/// descendants.
void startDetached(const std::function<void()>& start);

/// Whether any descendant is alive.
bool areAlive();

/// Whether one pass over the system's processes finds a descendant. May miss some: use areAlive().
bool isAnySeen();

/// Kills all descendants. They have ended when areAlive() returns false.
void killAll();

/// The children of this program that have ended and whose exit codes have not been read yet; none
/// on a system without such processes.
QSet<qint64> endedChildren();

} // namespace Descendants
