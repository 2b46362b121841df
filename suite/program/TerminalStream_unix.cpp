// SPDX-License-Identifier: MIT
#include "TerminalStream.h"

#include <poll.h>
#include <unistd.h>

bool suite::isTerminal(std::FILE* stream)
{
    return ::isatty(::fileno(stream)) != 0;
}

bool suite::hasLostReader(std::FILE* stream)
{
    pollfd descriptor = {::fileno(stream), 0, 0};
    return ::poll(&descriptor, 1, 0) > 0 && (descriptor.revents & (POLLERR | POLLNVAL)) != 0;
}
