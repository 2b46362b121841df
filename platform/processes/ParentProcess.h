#pragma once

#include <QtGlobal>

/// The process that has started this one.
namespace ParentProcess {

/// From now on this process is killed when its parent ends.
void endWithIt();

/// Whether a process is the parent of this one, or the parent's parent, and so on.
bool isBelow(qint64 process);

} // namespace ParentProcess
