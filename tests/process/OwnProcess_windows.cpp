// SPDX-License-Identifier: MIT
#include "OwnProcess.h"

#include <ProcessTable.h>

int OwnProcess::openDescriptors()
{
    DWORD count = 0; // which Wine does not set
    GetProcessHandleCount(GetCurrentProcess(), &count);
    return static_cast<int>(count);
}

// Those that have ended are not in the table.
int OwnProcess::children(bool /*withEnded*/)
{
    return ProcessTable::childrenOf(GetCurrentProcessId());
}
