// SPDX-License-Identifier: MIT
#pragma once

class QFile;

/// Locks on open files, which end with the process.
namespace FileLock {

/// Locks a file that is open for writing, against other processes that lock it. False if one of
/// them has it; true also where the file system has no locks.
bool take(QFile& file);

/// Whether the path of the file still leads to it.
bool isAtItsPath(QFile& file);

} // namespace FileLock
