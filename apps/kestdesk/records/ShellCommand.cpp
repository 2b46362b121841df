// SPDX-License-Identifier: MIT
#include "ShellCommand.h"

#include <QDir>

namespace {

// The value is simplified as at the start of a run. An entry without "=" counts for nothing there.
void add(ShellCommand::Variables& variables, const QString& entry)
{
    const int sign = entry.indexOf(QLatin1Char('='));
    if (sign >= 0) {
        variables.append({entry.left(sign).simplified(), entry.mid(sign + 1).simplified()});
    }
}

QStringList argumentsOf(const RunRecord& record)
{
    constexpr int behindTheModel = 1;
    QStringList arguments = record.arguments;
    const int option = arguments.indexOf(QStringLiteral("--machines-file"), behindTheModel);
    if (option >= 0 && option + 1 < arguments.size() && !record.machinesCopy.isEmpty()) {
        arguments[option + 1] =
            QDir::toNativeSeparators(QDir(record.folder).filePath(record.machinesCopy));
    }
    return arguments;
}

} // namespace

QString ShellCommand::of(const RunRecord& record)
{
    Variables variables;
    if (!record.installation.isEmpty()) {
        add(variables, QStringLiteral("KEST_HOME=") + record.installation);
    }
    for (const QString& entry : record.environment) {
        add(variables, entry);
    }
    return line(QDir::toNativeSeparators(record.workingDirectory), variables,
                QStringList(QDir::toNativeSeparators(record.program)) + argumentsOf(record));
}
