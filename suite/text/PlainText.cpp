// SPDX-License-Identifier: MIT
#include "PlainText.h"

#include <VisibleText.h>

namespace suite {

namespace {

constexpr int longestExcerpt = 60;

// Without "-*" there is no "-*-", however such pieces overlap.
QString withoutMarkers(QString text)
{
    return text.replace(QLatin1String("-*"), QLatin1String("- *"));
}

} // namespace

QString plainText(const QString& text)
{
    QString result = text;
    result.replace(QLatin1Char('\t'), QLatin1Char(' '));
    return withoutMarkers(visibleText(result));
}

QString carriedName(const QString& name)
{
    QString result = name;
    for (const char lineBreak : {'\n', '\r'}) {
        result.replace(QLatin1Char(lineBreak), QChar(QChar::ReplacementCharacter));
    }
    return withoutMarkers(result);
}

QString excerpt(const QString& text)
{
    if (text.size() <= longestExcerpt) {
        return plainText(text);
    }
    return plainText(text.left(longestExcerpt)) + QStringLiteral("...");
}

QString withoutColons(const QString& text)
{
    QString result = plainText(text);
    return result.replace(QLatin1Char(':'), QLatin1Char(';'));
}

} // namespace suite
