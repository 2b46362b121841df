// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// The program that reaches other hosts.
namespace suite::RemoteShell {

/// Its name or path from KEST_SSH; "ssh" if that is not set or empty. The program need not exist.
QString program();

} // namespace suite::RemoteShell
