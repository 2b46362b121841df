// SPDX-License-Identifier: MIT
#include "ShellCommand.h"

#include <QRegularExpression>

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

QString ShellCommand::line(const QString& folder, const Variables& variables,
                           const QStringList& words)
{
    QStringList parts;
    for (const auto& variable : variables) {
        parts.append(variable.first + QLatin1Char('=') + quoted(variable.second));
    }
    for (const QString& word : words) {
        parts.append(quoted(word));
    }
    return QStringLiteral("cd %1 && %2").arg(quoted(folder), parts.join(QLatin1Char(' ')));
}
