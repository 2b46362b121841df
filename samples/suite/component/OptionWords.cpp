// SPDX-License-Identifier: MIT
#include "OptionWords.h"

namespace suite {

QStringList optionWords(const CommandLine& line, OptionGroup group, const QStringList& without)
{
    QStringList result;
    const QVector<OptionRow> rows = optionRows();
    for (const OptionRow& row : rows) {
        const QString name = QLatin1String(row.name);
        const bool isGiven = row.group == group && line.has(group, name);
        if (!isGiven || row.kind == ValueKind::Switch || without.contains(name)) {
            continue;
        }
        result.append(name);
        if (!line.value(group, name).isEmpty()) {
            result.append(line.value(group, name));
        }
    }
    return result;
}

QStringList ignoreErrorsWords(const CommandLine& line)
{
    const QString option = QStringLiteral("--ignore-errors");
    return line.has(OptionGroup::Prekest, option)
               ? QStringList{QStringLiteral("--prekest-options"), option}
               : QStringList();
}

} // namespace suite
