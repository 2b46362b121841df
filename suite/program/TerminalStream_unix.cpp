#include "TerminalStream.h"

#include <unistd.h>

bool suite::isTerminal(std::FILE* stream)
{
    return ::isatty(::fileno(stream)) != 0;
}
