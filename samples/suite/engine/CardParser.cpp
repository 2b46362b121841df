#include "CardParser.h"

#include "PlainText.h"

#include <QRegularExpression>

#include <cmath>

namespace suite {

namespace {

// Beyond this no coordinate, frequency or material constant has a meaning.
constexpr double LargestNumber = 1e15;

bool isMatch(const QRegularExpression& pattern, const QString& text)
{
    return pattern.match(text).hasMatch();
}

const QRegularExpression& integerPattern()
{
    static const QRegularExpression pattern(QStringLiteral("\\A[+-]?[0-9]+\\z"));
    return pattern;
}

const QRegularExpression& numberPattern()
{
    static const QRegularExpression pattern(
        QStringLiteral("\\A[+-]?([0-9]+\\.?[0-9]*|\\.[0-9]+)([eE][+-]?[0-9]+)?\\z"));
    return pattern;
}

QStringList splitFields(const QString& text)
{
    static const QRegularExpression separators(QStringLiteral("[ \\t,]+"));
    static const QRegularExpression remark(QStringLiteral("[!#'].*"));
    const QStringList words = text.split(separators, Qt::SkipEmptyParts);
    const int end = words.indexOf(remark);
    return end < 0 ? words : QStringList(words.mid(0, end));
}

} // namespace

CardParser::CardParser(FindingList& findings) : m_findings(findings)
{}

void CardParser::parse(const CardRule& rule, const QString& text, Card& card)
{
    card.fields = splitFields(text);
    card.isValid = checkCount(rule, card);
    const int count = qMin(card.fields.size(), fieldCount(rule.section));
    for (int index = 0; index < count; ++index) {
        card.isValid = parseField(rule, card, index) && card.isValid;
    }
}

bool CardParser::checkCount(const CardRule& rule, const Card& card)
{
    const int most = fieldCount(rule.section);
    const bool tooMany = card.fields.size() > most;
    if (!tooMany && card.fields.size() >= rule.requiredFields) {
        return true;
    }
    m_findings.add(tooMany ? FindingKind::TooManyFields : FindingKind::MissingFields, card.line,
                   {card.mnemonic, QString::number(tooMany ? most : rule.requiredFields),
                    QString::number(card.fields.size())});
    return false;
}

bool CardParser::parseField(const CardRule& rule, Card& card, int index)
{
    return index < integerFieldCount(rule.section) ? parseInteger(card, index)
                                                   : parseNumber(card, index);
}

bool CardParser::parseInteger(Card& card, int index)
{
    const QString& field = card.fields.at(index);
    bool isInRange = false;
    const int value = field.toInt(&isInRange);
    card.integers.append(value);
    if (isMatch(integerPattern(), field) && isInRange) {
        return true;
    }
    const bool isNumber = isMatch(numberPattern(), field);
    const bool isInteger = isMatch(integerPattern(), field);
    report(isInteger  ? FindingKind::NumberOutOfRange
           : isNumber ? FindingKind::NotInteger
                      : FindingKind::NotNumber,
           card, index);
    return false;
}

bool CardParser::parseNumber(Card& card, int index)
{
    const QString& field = card.fields.at(index);
    bool isInRange = false;
    const double value = field.toDouble(&isInRange);
    card.numbers.append(value);
    if (!isMatch(numberPattern(), field)) {
        report(FindingKind::NotNumber, card, index);
        return false;
    }
    if (!isInRange || !std::isfinite(value) || std::abs(value) > LargestNumber) {
        report(FindingKind::NumberOutOfRange, card, index);
        return false;
    }
    return true;
}

void CardParser::report(FindingKind kind, const Card& card, int index)
{
    m_findings.add(kind, card.line,
                   {card.mnemonic, QString::number(index + 1), excerpt(card.fields.at(index))});
}

} // namespace suite
