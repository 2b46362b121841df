// SPDX-License-Identifier: MIT
#include "Console.h"

#include <QDir>
#include <QFileInfo>

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
