#include "Console.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

namespace {

QString usersShell()
{
    const QString shell = qEnvironmentVariable("SHELL");
    return QFileInfo(shell).isExecutable() ? shell : QStringLiteral("/bin/sh");
}

} // namespace

// The shell's own environment, so that this program's stays as it is.
Console Console::finding(const QString& folder)
{
    QStringList folders(folder);
    const QString others = qEnvironmentVariable("PATH");
    if (!others.isEmpty()) {
        folders.append(others);
    }
    return {QStringLiteral("/usr/bin/env"),
            {QStringLiteral("PATH=") + folders.join(QDir::listSeparator()), usersShell()}};
}

// As Debian names whichever terminal emulator the user has.
bool Console::exists()
{
    const bool hasDisplay =
        !qEnvironmentVariableIsEmpty("DISPLAY") || !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
    return hasDisplay &&
           !QStandardPaths::findExecutable(QStringLiteral("x-terminal-emulator")).isEmpty();
}
