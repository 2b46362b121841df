// SPDX-License-Identifier: MIT
#include "ParallelRuns.h"

QString suite::ParallelRuns::obstacle()
{
    return QStringLiteral(
        "parallel and farmed runs are not available on Windows, run the model on this "
        "machine alone");
}
