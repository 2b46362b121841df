// SPDX-License-Identifier: MIT
#include "VisibleText.h"

#include "FileName.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>

namespace suite {

namespace {

constexpr uint zeroWidthNonJoiner = 0x200c;
constexpr uint zeroWidthJoiner = 0x200d;

bool isInvisible(uint code)
{
    switch (QChar::category(code)) {
    case QChar::Other_Format:
        return code != zeroWidthNonJoiner && code != zeroWidthJoiner;
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
        return true;
    default:
        return false;
    }
}

bool isControl(uint code)
{
    return QChar::category(code) == QChar::Other_Control && code != '\t';
}

bool isPlain(QChar character)
{
    const uint code = character.unicode();
    return !character.isSurrogate() && !isControl(code) && !isInvisible(code);
}

// In place of a character that is not plain; the character itself where nothing is wrong with it.
QString shown(const QString& character, uint code)
{
    if (FileName::isEscapedByte(code)) {
        return QStringLiteral("\\x%1").arg(
            QString::number(FileName::escapedByte(code), 16).toUpper());
    }
    if (isControl(code) || QChar::isSurrogate(code)) {
        return QString(QChar::ReplacementCharacter);
    }
    if (isInvisible(code)) {
        return QStringLiteral("<U+%1>").arg(QString::number(code, 16).toUpper(), 4,
                                            QLatin1Char('0'));
    }
    return character;
}

bool isPairAt(const QString& text, int place)
{
    return text.at(place).isHighSurrogate() && place + 1 < text.size() &&
           text.at(place + 1).isLowSurrogate();
}

} // namespace

QString visibleText(const QString& text)
{
    if (std::all_of(text.begin(), text.end(), isPlain)) {
        return text;
    }
    QString result;
    for (int i = 0; i < text.size(); ++i) {
        if (isPairAt(text, i)) {
            result += shown(text.mid(i, 2), QChar::surrogateToUcs4(text.at(i), text.at(i + 1)));
            ++i;
        } else {
            result += shown(text.at(i), text.at(i).unicode());
        }
    }
    return result;
}

QString visibleLines(const QString& text)
{
    QStringList lines = text.split(QLatin1Char('\n'));
    std::transform(lines.begin(), lines.end(), lines.begin(), visibleText);
    return lines.join(QLatin1Char('\n'));
}

QString visiblePath(const QString& path)
{
    return visibleText(QDir::toNativeSeparators(path));
}

QString visibleFileName(const QString& path)
{
    return visibleText(QFileInfo(path).fileName());
}

} // namespace suite
