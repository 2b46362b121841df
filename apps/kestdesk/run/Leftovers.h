// SPDX-License-Identifier: MIT
#pragma once

/// Files that killed programs of the suite have left behind.
namespace Leftovers {

/// Removes their temporary folders, their copies of machines files and their locks of models.
/// KEST_USER_HOME must be set.
void remove();

} // namespace Leftovers
