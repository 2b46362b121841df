// SPDX-License-Identifier: MIT
#include "NativeArguments.h"

std::vector<QByteArray> suite::NativeArguments::words(int argc, char* argv[])
{
    return {argv, argv + argc};
}
