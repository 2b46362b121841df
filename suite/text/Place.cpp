// SPDX-License-Identifier: MIT
#include "Place.h"

#include "PlainText.h"

#include <QRegularExpression>

#include <tuple>

namespace suite {

namespace {

// What stands in brackets behind a message.
const QRegularExpression& pattern()
{
    static const QRegularExpression expression(
        QStringLiteral("\\A(?:(.*), )?line ([1-9][0-9]{0,8})(?:, tag ([1-9][0-9]{0,8}))?\\z"),
        QRegularExpression::DotMatchesEverythingOption);
    return expression;
}

bool hasMatchingBrackets(const QString& name)
{
    int depth = 0;
    for (const QChar character : name) {
        depth += character == QLatin1Char('(') ? 1 : character == QLatin1Char(')') ? -1 : 0;
        if (depth < 0) {
            return false;
        }
    }
    return depth == 0;
}

// Whether a message cannot carry a character as it is, or a reader would take it for another.
bool isEncoded(const QString& character, bool areBracketsEncoded)
{
    const bool isBracket = character == QLatin1String("(") || character == QLatin1String(")");
    return character == QLatin1String(":") || character == QLatin1String("%") ||
           plainText(character) != character || (isBracket && areBracketsEncoded);
}

// Where the bracket opens that the last character closes; -1 when nowhere.
int openingBracket(const QString& text)
{
    int depth = 0;
    for (int i = text.size() - 1; i >= 0 && text.endsWith(QLatin1Char(')')); --i) {
        depth += text.at(i) == QLatin1Char(')') ? 1 : text.at(i) == QLatin1Char('(') ? -1 : 0;
        if (depth == 0) {
            return i;
        }
    }
    return -1;
}

QString writtenName(const QString& name)
{
    const bool areBracketsEncoded = !hasMatchingBrackets(name);
    QString result;
    for (int i = 0; i < name.size(); ++i) {
        const bool isPair = name.at(i).isHighSurrogate() && i + 1 < name.size();
        const QString character = name.mid(i, isPair ? 2 : 1);
        const bool isMarker = character == QLatin1String("*") && result.endsWith(QLatin1Char('-'));
        result += isMarker ? QStringLiteral("%2A")
                  : isEncoded(character, areBracketsEncoded)
                      ? QString::fromLatin1(character.toUtf8().toPercentEncoding())
                      : character;
        i += isPair ? 1 : 0;
    }
    return result;
}

} // namespace

QString Place::text() const
{
    if (line < 1) {
        return {};
    }
    const QString name = file.isEmpty() ? QString() : writtenName(file) + QStringLiteral(", ");
    const QString wire = tag > 0 ? QStringLiteral(", tag %1").arg(tag) : QString();
    return QLatin1Char('(') + name + QStringLiteral("line %1").arg(line) + wire + QLatin1Char(')');
}

QString Place::behind(const QString& message) const
{
    return line < 1 ? message : message + QLatin1Char(' ') + text();
}

std::optional<Place> Place::at(const QString& message)
{
    const int start = openingBracket(message);
    const QRegularExpressionMatch match =
        start < 0 ? QRegularExpressionMatch()
                  : pattern().match(message.mid(start + 1, message.size() - start - 2));
    if (!match.hasMatch()) {
        return std::nullopt;
    }
    Place result;
    result.file = QString::fromUtf8(QByteArray::fromPercentEncoding(match.captured(1).toUtf8()));
    result.line = match.captured(2).toInt();
    result.tag = match.captured(3).toInt();
    return result;
}

bool operator==(const Place& left, const Place& right)
{
    return std::tie(left.file, left.line, left.tag) == std::tie(right.file, right.line, right.tag);
}

} // namespace suite
