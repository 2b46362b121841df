// SPDX-License-Identifier: MIT
#pragma once

/// The environment variables that name the suite's folders.
namespace Environment {

/// Sets KEST_HOME and KEST_USER_HOME in the environment of this process to absolute paths; unset
/// ones get their defaults. The library and the components then use the same folders, whatever
/// their working folder.
void complete();

} // namespace Environment
