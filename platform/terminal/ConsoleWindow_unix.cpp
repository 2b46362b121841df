// SPDX-License-Identifier: MIT
#include "ConsoleWindow.h"

#include <QProcess>
#include <QStandardPaths>
#include <QStringList>

namespace {

bool hasDisplay()
{
    return !qEnvironmentVariableIsEmpty("DISPLAY") ||
           !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
}

// The user's terminal emulator, by the name that Debian gives to whichever it is.
QString terminal()
{
    return QStandardPaths::findExecutable(QStringLiteral("x-terminal-emulator"));
}

} // namespace

bool ConsoleWindow::isAvailable()
{
    return hasDisplay() && !terminal().isEmpty();
}

// A program that does not exist is started without a terminal: then the start fails, which a
// terminal would hide by closing at once.
void ConsoleWindow::openFor(QProcess& process)
{
    if (isAvailable() && !QStandardPaths::findExecutable(process.program()).isEmpty()) {
        process.setArguments(QStringList{QStringLiteral("-e"), process.program()} +
                             process.arguments());
        process.setProgram(terminal());
    }
}

void ConsoleWindow::detach()
{}
