// SPDX-License-Identifier: MIT
#include "NiceValue.h"

#include <thread>

#include <sys/resource.h>

// On Linux the value belongs to the thread, so a thread can try for the process.
bool NiceValue::isAllowed(int value)
{
    bool result = false;
    std::thread([&result, value] { result = ::setpriority(PRIO_PROCESS, 0, value) == 0; }).join();
    return result;
}
