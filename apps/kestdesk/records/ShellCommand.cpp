// SPDX-License-Identifier: MIT
#include "ShellCommand.h"

#include <QDir>
#include <QRegularExpression>

namespace {

// The path is simplified as at the start of a run.
QString assignment(const QString& entry)
{
    const int sign = entry.indexOf(QLatin1Char('='));
    return sign < 0 ? QString()
                    : entry.left(sign).simplified() + QLatin1Char('=') +
                          ShellCommand::quoted(entry.mid(sign + 1).simplified());
}

QStringList argumentsOf(const RunRecord& record)
{
    constexpr int behindTheModel = 1;
    QStringList arguments = record.arguments;
    const int option = arguments.indexOf(QStringLiteral("--machines-file"), behindTheModel);
    if (option >= 0 && option + 1 < arguments.size() && !record.machinesCopy.isEmpty()) {
        arguments[option + 1] = QDir(record.folder).filePath(record.machinesCopy);
    }
    return arguments;
}

} // namespace

QString ShellCommand::quoted(const QString& word)
{
    static const QRegularExpression plain(
        QRegularExpression::anchoredPattern(QStringLiteral("[A-Za-z0-9_@%+:,./-]+")));
    if (plain.match(word).hasMatch()) {
        return word;
    }
    QString inner = word;
    inner.replace(QLatin1Char('\''), QLatin1String("'\\''"));
    return QLatin1Char('\'') + inner + QLatin1Char('\'');
}

QString ShellCommand::of(const RunRecord& record)
{
    QStringList words;
    if (!record.installation.isEmpty()) {
        words.append(assignment(QStringLiteral("KEST_HOME=") + record.installation));
    }
    for (const QString& entry : record.environment) {
        const QString word = assignment(entry);
        if (!word.isEmpty()) {
            words.append(word);
        }
    }
    words.append(quoted(record.program));
    const QStringList arguments = argumentsOf(record);
    for (const QString& argument : arguments) {
        words.append(quoted(argument));
    }
    return QStringLiteral("cd %1 && %2")
        .arg(quoted(record.workingDirectory), words.join(QLatin1Char(' ')));
}
