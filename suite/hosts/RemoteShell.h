#pragma once

#include <QString>

/// The program that reaches other hosts.
namespace suite::RemoteShell {

/// Its name or path as the user has chosen it by KEST_SSH; "ssh" where that is not set or empty. It
/// need not exist.
QString program();

} // namespace suite::RemoteShell
