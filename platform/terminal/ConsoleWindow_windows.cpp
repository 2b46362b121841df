// SPDX-License-Identifier: MIT
#include "ConsoleWindow.h"

#include <QProcess>

#include <algorithm>
#include <iterator>

#include <windows.h>

namespace {

// Without STARTF_USESTDHANDLES the child gets the handles of its new console.
void giveOwnConsole(QProcess::CreateProcessArguments* arguments)
{
    arguments->inheritHandles = false;
    arguments->flags = CREATE_NEW_CONSOLE | CREATE_UNICODE_ENVIRONMENT;
    arguments->startupInfo->dwFlags &= ~static_cast<DWORD>(STARTF_USESTDHANDLES);
    arguments->startupInfo->hStdInput = nullptr;
    arguments->startupInfo->hStdOutput = nullptr;
    arguments->startupInfo->hStdError = nullptr;
}

bool isConsole(DWORD channel)
{
    DWORD mode = 0;
    return GetConsoleMode(GetStdHandle(channel), &mode) != 0;
}

} // namespace

bool ConsoleWindow::isAvailable()
{
    return true;
}

void ConsoleWindow::openFor(QProcess& process)
{
    process.setCreateProcessArgumentsModifier(giveOwnConsole);
}

// The handles of a console that is left are not valid any more: processes that are started later
// must not get them.
void ConsoleWindow::detach()
{
    constexpr DWORD channels[] = {STD_INPUT_HANDLE, STD_OUTPUT_HANDLE, STD_ERROR_HANDLE};
    bool wasConsole[3] = {};
    std::transform(std::begin(channels), std::end(channels), std::begin(wasConsole), isConsole);
    if (FreeConsole() == 0) {
        return;
    }
    for (int i = 0; i < 3; ++i) {
        if (wasConsole[i]) {
            SetStdHandle(channels[i], nullptr);
        }
    }
}
