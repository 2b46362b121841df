// SPDX-License-Identifier: MIT
#pragma once

class QString;

/// Replacing files that other processes use.
namespace FileReplacement {

/// Whether a file can be replaced or removed while it is open.
bool isPossibleWhileOpen();

/// For how many milliseconds it is worth trying to replace a file again: 0 where open files can be
/// replaced.
int longestWait();

/// Renames a file in its folder. Waits for programs that have it open, if it cannot be renamed
/// meanwhile, but at most longestWait(). False if it cannot be renamed, or is not there any more:
/// of several programs that rename the same file, one succeeds.
bool rename(const QString& path, const QString& newPath);

/// Removes a file, in the same way. False if it cannot be removed, or is not there any more.
bool remove(const QString& path);

} // namespace FileReplacement
