// SPDX-License-Identifier: MIT
#include "KeptConsole.h"

#include "ConsoleWindow.h"
#include "StopSignals.h"

#include <cstdio>

#include <io.h>
#include <windows.h>

namespace {

bool isConsole(std::FILE* stream)
{
    const auto handle = reinterpret_cast<HANDLE>(_get_osfhandle(_fileno(stream)));
    DWORD mode = 0;
    return GetConsoleMode(handle, &mode) != 0;
}

void reopen(bool wasConsole, const char* name, const char* mode, std::FILE* stream)
{
    if (wasConsole) {
        std::freopen(name, mode, stream);
    }
}

} // namespace

KeptConsole::KeptConsole()
    : m_hadConsole(GetConsoleCP() != 0)
    , m_wasConsole{isConsole(stdin), isConsole(stdout), isConsole(stderr)}
{}

// In the new console no function is called for Ctrl+C until it is set again.
void KeptConsole::restore() const
{
    if (!m_hadConsole || GetConsoleCP() != 0 || AttachConsole(ATTACH_PARENT_PROCESS) == 0) {
        return;
    }
    reopen(m_wasConsole[0], "CONIN$", "r", stdin);
    reopen(m_wasConsole[1], "CONOUT$", "w", stdout);
    reopen(m_wasConsole[2], "CONOUT$", "w", stderr);
    StopSignals::renew();
}

void KeptConsole::leaveUnshared()
{
    DWORD process = 0;
    if (GetConsoleProcessList(&process, 1) == 1) {
        ConsoleWindow::detach();
    }
}
