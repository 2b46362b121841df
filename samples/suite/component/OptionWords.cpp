#include "OptionWords.h"

namespace suite {

QStringList optionWords(const CommandLine& line, OptionGroup group)
{
    QStringList result;
    const QVector<OptionRow> rows = optionRows();
    for (const OptionRow& row : rows) {
        const QString name = QLatin1String(row.name);
        if (row.group != group || row.kind == ValueKind::Switch || !line.has(group, name)) {
            continue;
        }
        result.append(name);
        if (!line.value(group, name).isEmpty()) {
            result.append(line.value(group, name));
        }
    }
    return result;
}

} // namespace suite
