// SPDX-License-Identifier: MIT
#include "TerminalStream.h"

#include <io.h>

bool suite::isTerminal(std::FILE* stream)
{
    return _isatty(_fileno(stream)) != 0;
}

bool suite::hasLostReader(std::FILE* /*stream*/)
{
    return false;
}
