#pragma once

/// What programs of the suite have left behind that were killed.
namespace Leftovers {

/// Removes their temporary folders and their copies of machines files. KEST_USER_HOME must be set.
void remove();

} // namespace Leftovers
