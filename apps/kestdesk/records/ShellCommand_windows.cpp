// SPDX-License-Identifier: MIT
#include "ShellCommand.h"

#include <QRegularExpression>

namespace {

// As the C library and CommandLineToArgvW() read words: backslashes count only before a quote.
QString forProgram(const QString& word)
{
    static const QRegularExpression beforeQuote(QStringLiteral("(\\\\*)(\"|$)"));
    QString inner = word;
    inner.replace(beforeQuote, QStringLiteral("\\1\\1\\2"));
    inner.replace(QLatin1Char('"'), QLatin1String("\\\""));
    return QLatin1Char('"') + inner + QLatin1Char('"');
}

// Each character with a meaning in cmd, outside of its quotes. With a "^" in it, what is between
// two percent signs is no name of a variable.
QString withCarets(const QString& text)
{
    static const QRegularExpression special(QStringLiteral("([\"&|<>()^])"));
    static const QRegularExpression percent(QStringLiteral("%(?=[^%^])"));
    return QString(text)
        .replace(special, QStringLiteral("^\\1"))
        .replace(percent, QStringLiteral("%^"));
}

// cmd knows no line breaks in a command.
QString inOneLine(const QString& text)
{
    static const QRegularExpression breaks(QStringLiteral("[\\r\\n]+"));
    return QString(text).replace(breaks, QStringLiteral(" "));
}

// For paths, which have no quotes in them. A percent sign stays as it is, unless it is one of two
// with the name of a variable between them; cd and the name of a program leave no way to prevent
// that.
QString quotedPath(const QString& path)
{
    return QLatin1Char('"') + path + QLatin1Char('"');
}

QString assignment(const QString& name, const QString& value)
{
    const QString entry = inOneLine(name + QLatin1Char('=') + value);
    const bool isQuotable = !entry.contains(QLatin1Char('"')) && !entry.contains(QLatin1Char('%'));
    return isQuotable ? QStringLiteral("set \"%1\" && ").arg(entry)
                      : QStringLiteral("set %1&& ").arg(withCarets(entry));
}

// Only pushd enters a folder of a share.
QString entering(const QString& folder)
{
    const bool isShare = folder.startsWith(QLatin1String("\\\\"));
    return (isShare ? QStringLiteral("pushd ") : QStringLiteral("cd /d ")) + quotedPath(folder) +
           QStringLiteral(" && ");
}

} // namespace

QString ShellCommand::quoted(const QString& word)
{
    static const QRegularExpression plain(
        QRegularExpression::anchoredPattern(QStringLiteral("[A-Za-z0-9_@+:./\\\\-]+")));
    const QString text = inOneLine(word);
    if (plain.match(text).hasMatch()) {
        return text;
    }
    // Variables are replaced within quotes, too.
    static const QRegularExpression unquotable(QStringLiteral("[\"%]"));
    return text.contains(unquotable) ? withCarets(forProgram(text)) : forProgram(text);
}

QString ShellCommand::line(const QString& folder, const Variables& variables,
                           const QStringList& words)
{
    QString result = entering(folder);
    for (const auto& variable : variables) {
        result += assignment(variable.first, variable.second);
    }
    QStringList quotedWords = {quotedPath(words.first())};
    for (const QString& word : words.mid(1)) {
        quotedWords.append(quoted(word));
    }
    return result + quotedWords.join(QLatin1Char(' '));
}
