// SPDX-License-Identifier: MIT
#include "Subcommand.h"

#include <QStringList>

QString SubcommandOption::syntax() const
{
    const QString word = QLatin1String(name);
    return takesValue() ? QStringLiteral("[%1 %2]").arg(word, QLatin1String(valueName))
                        : QStringLiteral("[%1]").arg(word);
}

QString Subcommand::syntax() const
{
    QStringList parts = {QLatin1String(name)};
    for (const SubcommandOption& option : options) {
        parts.append(option.syntax());
    }
    if (*operands != '\0') {
        parts.append(QLatin1String(operands));
    }
    return parts.join(QLatin1Char(' '));
}
