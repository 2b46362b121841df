// SPDX-License-Identifier: MIT
#pragma once

/// Replacing files that other processes use.
namespace FileReplacement {

/// Whether a file can be replaced or removed while it is open.
bool isPossibleWhileOpen();

/// For how many milliseconds it is worth trying to replace a file again: 0 where open files can be
/// replaced.
int longestWait();

} // namespace FileReplacement
