// SPDX-License-Identifier: MIT
#include "ParallelRuns.h"

QString suite::ParallelRuns::obstacle()
{
    return QString();
}
