// SPDX-License-Identifier: MIT
#pragma once

/// The folders in which the system starts programs.
namespace StartFolder {

/// The number of characters that the path of such a folder may have; 0 where there is no limit
/// below that of all paths.
int longestPath();

} // namespace StartFolder
