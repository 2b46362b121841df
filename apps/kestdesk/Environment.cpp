// SPDX-License-Identifier: MIT
#include "Environment.h"

#include "ApplicationInfo.h"
#include "Installation.h"

#include <EnvironmentVariable.h>
#include <common_EnvironmentVariablesExt.h>

#include <QDir>

namespace {

void setFolder(const char* variable, const QString& fallback)
{
    const QString value = common_EnvironmentVariablesExt::getVariableExpanded(variable);
    const QString folder = QDir(value.isEmpty() ? fallback : value).absolutePath();
    EnvironmentVariable::set(QLatin1String(variable), QDir::cleanPath(folder));
}

} // namespace

void Environment::complete()
{
    setFolder("KEST_HOME", Installation::directory());
    setFolder("KEST_USER_HOME", ApplicationInfo().userSettingsDirectory());
}
