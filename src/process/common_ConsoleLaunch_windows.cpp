#include "common_ConsoleLaunch.h"

#include <QProcess>

#include <windows.h>

const char* common_executableSuffix()
{
    return ".exe";
}

void common_openInConsole(QProcess& process)
{
    process.setCreateProcessArgumentsModifier([](QProcess::CreateProcessArguments* arguments) {
        arguments->inheritHandles = false;
        arguments->flags |= CREATE_NEW_CONSOLE | CREATE_UNICODE_ENVIRONMENT;
    });
}
