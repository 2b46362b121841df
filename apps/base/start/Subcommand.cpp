#include "Subcommand.h"

#include <QStringList>

namespace {

QString syntaxOf(const SubcommandOption& option)
{
    const QString name = QLatin1String(option.name);
    return *option.valueName == '\0'
               ? QStringLiteral("[%1]").arg(name)
               : QStringLiteral("[%1 %2]").arg(name, QLatin1String(option.valueName));
}

} // namespace

QString Subcommand::syntax() const
{
    QStringList parts = {QLatin1String(name)};
    if (option != nullptr) {
        parts.append(syntaxOf(*option));
    }
    if (*operands != '\0') {
        parts.append(QLatin1String(operands));
    }
    return parts.join(QLatin1Char(' '));
}
