// SPDX-License-Identifier: MIT
#include "FileReplacement.h"

bool FileReplacement::isPossibleWhileOpen()
{
    return false;
}

// A file that another process has open, even for reading, cannot be replaced. Programs that read
// settings have them open for a few milliseconds; a window may stand still for a second.
int FileReplacement::longestWait()
{
    return 900;
}
