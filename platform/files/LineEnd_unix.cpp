// SPDX-License-Identifier: MIT
#include "LineEnd.h"

QString LineEnd::inTextMode(const QString& line)
{
    return line;
}
