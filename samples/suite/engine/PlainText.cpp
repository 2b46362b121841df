#include "PlainText.h"

namespace suite {

namespace {

constexpr int LongestExcerpt = 60;

bool isUnprintable(QChar character)
{
    switch (character.category()) {
    case QChar::Other_Control:
    case QChar::Other_Format:
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
        return true;
    default:
        return false;
    }
}

} // namespace

QString plainText(const QString& text)
{
    QString result = text;
    for (QChar& character : result) {
        if (character == QLatin1Char('\t')) {
            character = QLatin1Char(' ');
        } else if (isUnprintable(character)) {
            character = QLatin1Char('?');
        }
    }
    // Without "-*" there is no "-*-", however such pieces overlap.
    return result.replace(QLatin1String("-*"), QLatin1String("- *"));
}

QString excerpt(const QString& text)
{
    if (text.size() <= LongestExcerpt) {
        return plainText(text);
    }
    return plainText(text.left(LongestExcerpt)) + QStringLiteral("...");
}

QString withoutColons(const QString& text)
{
    QString result = plainText(text);
    return result.replace(QLatin1Char(':'), QLatin1Char(';'));
}

} // namespace suite
