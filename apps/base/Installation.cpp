// SPDX-License-Identifier: MIT
#include "Installation.h"

#include <common_EnvironmentVariablesExt.h>

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

namespace {

// What every installation has.
bool isInstallation(const QString& directory)
{
    return QFileInfo::exists(directory + QStringLiteral("/default.ini"));
}

} // namespace

QString Installation::directory()
{
    const QString home = common_EnvironmentVariablesExt::getVariableExpanded("KEST_HOME");
    if (!home.isEmpty()) {
        return QDir(home).absolutePath();
    }
    const QString programs = QCoreApplication::applicationDirPath();
    const QString around = QDir::cleanPath(programs + QStringLiteral("/.."));
    return isInstallation(around)
               ? around
               : QDir::cleanPath(programs + QLatin1String("/" KEST_SUITE_FROM_BIN));
}

QString Installation::helpDirectory()
{
    return directory() + QStringLiteral("/help");
}

QString Installation::program(const QString& component)
{
    return QStandardPaths::findExecutable(component, {directory() + QLatin1String("/bin")});
}
