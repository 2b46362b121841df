// SPDX-License-Identifier: MIT
#include "RemoteShell.h"

namespace suite {

QString RemoteShell::program()
{
    const QString chosen = qEnvironmentVariable("KEST_SSH");
    return chosen.isEmpty() ? QStringLiteral("ssh") : chosen;
}

} // namespace suite
