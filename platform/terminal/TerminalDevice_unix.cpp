// SPDX-License-Identifier: MIT
#include "TerminalDevice.h"

#include <cstdlib>
#include <cstring>

#include <sys/ioctl.h>
#include <unistd.h>

bool TerminalDevice::isTerminal(std::FILE* stream)
{
    const char* const type = std::getenv("TERM");
    return isAnyTerminal(stream) && type && std::strcmp(type, "dumb") != 0;
}

bool TerminalDevice::isAnyTerminal(std::FILE* stream)
{
    return ::isatty(::fileno(stream)) != 0;
}

int TerminalDevice::columns(std::FILE* stream)
{
    winsize size = {};
    return ioctl(fileno(stream), TIOCGWINSZ, &size) == 0 && size.ws_col > 0 ? size.ws_col : 80;
}
