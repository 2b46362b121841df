// SPDX-License-Identifier: MIT
#include "SuiteVersion.h"

namespace suite {

QString version()
{
    return QStringLiteral(KEST_VERSION);
}

} // namespace suite
