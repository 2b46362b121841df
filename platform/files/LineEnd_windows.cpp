// SPDX-License-Identifier: MIT
#include "LineEnd.h"

QString LineEnd::inTextMode(const QString& line)
{
    const bool isComplete = line.endsWith(QLatin1String("\r\n"));
    return isComplete ? line.left(line.size() - 2) + QLatin1Char('\n') : line;
}
