// SPDX-License-Identifier: MIT
#include "ProgramName.h"

const char* ProgramName::suffix()
{
    return "";
}
