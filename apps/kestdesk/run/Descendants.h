#ifndef DESCENDANTS_H
#define DESCENDANTS_H

#include <functional>

/// The processes that this program started, and those that they started.
namespace Descendants {

/// From now on processes whose parent ends become this program's own, where the platform has such
/// a thing, so that none gets lost.
void adoptOrphans();

/// Calls what starts programs that are to outlive this one: they do not count among the processes.
void startApart(const std::function<void()>& start);

/// Whether one of them is alive.
bool areAlive();

/// Kills all of them. They are gone when areAlive() says so.
void killAll();

/// Waits as long as given for them to end by themselves, and then kills what is left.
void endAll(int milliseconds);

} // namespace Descendants

#endif
