// SPDX-License-Identifier: MIT
#include "SamePath.h"

bool SamePath::areEqual(const QString& path, const QString& other)
{
    return path == other;
}
