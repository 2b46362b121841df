// SPDX-License-Identifier: MIT
#include "Console.h"

#include <QDir>

Console Console::finding(const QString& folder)
{
    return {qEnvironmentVariable("COMSPEC"),
            {QStringLiteral("/K"),
             QStringLiteral("set PATH=%1;%PATH%").arg(QDir::toNativeSeparators(folder))}};
}
