// SPDX-License-Identifier: MIT
#include "FileReplacement.h"

bool FileReplacement::isPossibleWhileOpen()
{
    return true;
}

int FileReplacement::longestWait()
{
    return 0;
}
