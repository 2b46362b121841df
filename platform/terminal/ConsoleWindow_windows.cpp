#include "ConsoleWindow.h"

#include <QProcess>

#include <windows.h>

bool ConsoleWindow::isAvailable()
{
    return true;
}

void ConsoleWindow::openFor(QProcess& process)
{
    process.setCreateProcessArgumentsModifier([](QProcess::CreateProcessArguments* arguments) {
        arguments->inheritHandles = false;
        arguments->flags |= CREATE_NEW_CONSOLE | CREATE_UNICODE_ENVIRONMENT;
    });
}

void ConsoleWindow::detach()
{
    FreeConsole();
}
