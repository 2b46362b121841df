// SPDX-License-Identifier: MIT
#include "Clause.h"

QString suite::clause(const QString& errorText)
{
    const QString text = errorText.trimmed();
    return text.endsWith(QLatin1Char('.')) ? text.chopped(1) : text;
}
