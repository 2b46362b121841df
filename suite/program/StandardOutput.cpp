// SPDX-License-Identifier: MIT
#include "StandardOutput.h"

#include <cstdio>

bool suite::StandardOutput::flush()
{
    const bool isFlushed = std::fflush(stdout) == 0;
    return isFlushed && std::ferror(stdout) == 0;
}
