#include "common_ConsoleLaunch.h"

#include <QProcess>
#include <QStandardPaths>
#include <QStringList>

const char* common_executableSuffix()
{
    return "";
}

// The user's terminal emulator, as Debian names whichever it is. A program that is not there is
// left as it is: then the start fails, and not something in a terminal that closes at once.
void common_openInConsole(QProcess& process)
{
    const bool hasDisplay =
        qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY");
    const QString terminal = QStandardPaths::findExecutable(QStringLiteral("x-terminal-emulator"));
    if (hasDisplay && !terminal.isEmpty() &&
        !QStandardPaths::findExecutable(process.program()).isEmpty()) {
        process.setArguments(QStringList{QStringLiteral("-e"), process.program()} +
                             process.arguments());
        process.setProgram(terminal);
    }
}
