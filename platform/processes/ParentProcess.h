// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

/// The parent of this process.
namespace ParentProcess {

/// From now on this process is killed when its parent ends.
void endWithIt();

/// Whether a process is an ancestor of this one.
bool isBelow(qint64 process);

} // namespace ParentProcess
