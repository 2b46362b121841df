// SPDX-License-Identifier: MIT
#include "TerminalDevice.h"

#include <io.h>
#include <windows.h>

bool TerminalDevice::isTerminal(std::FILE* stream)
{
    const auto console = reinterpret_cast<HANDLE>(_get_osfhandle(_fileno(stream)));
    DWORD mode = 0;
    return GetConsoleMode(console, &mode) &&
           SetConsoleMode(console, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING);
}

bool TerminalDevice::isAnyTerminal(std::FILE* stream)
{
    return _isatty(_fileno(stream)) != 0;
}

int TerminalDevice::columns(std::FILE* stream)
{
    const auto console = reinterpret_cast<HANDLE>(_get_osfhandle(_fileno(stream)));
    CONSOLE_SCREEN_BUFFER_INFO info = {};
    return GetConsoleScreenBufferInfo(console, &info) ? info.srWindow.Right - info.srWindow.Left + 1
                                                      : 80;
}
