#pragma once

/// The environment variables that name the suite's folders.
namespace Environment {

/// Sets KEST_HOME and KEST_USER_HOME in this program's own environment to what it uses for them:
/// absolute paths, or where they are not set the defaults. The library and the components then
/// mean the same folders, wherever they run.
void complete();

} // namespace Environment
