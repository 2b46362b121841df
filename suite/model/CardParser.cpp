// SPDX-License-Identifier: MIT
#include "CardParser.h"

#include "DefinitionReader.h"
#include "Expression.h"
#include "PlainText.h"

#include <QRegularExpression>

#include <algorithm>
#include <cmath>

namespace suite {

namespace {

// Beyond this no coordinate, frequency or material constant has a meaning.
constexpr double largestNumber = 1e15;

// A value this close to a whole number, relative to its size, is meant to be one.
constexpr double tolerance = 1e-9;

// The most bytes of a line that the engine reads, and the digits that values are given in one.
constexpr int longestLine = 132;
constexpr int mostDigits = 15;
constexpr int fewestDigits = 8;

bool isMatch(const QRegularExpression& pattern, const QString& text)
{
    return pattern.match(text).hasMatch();
}

const QRegularExpression& integerPattern()
{
    static const QRegularExpression pattern(QStringLiteral("\\A[+-]?[0-9]+\\z"));
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

CardParser::CardParser(FindingList& findings, const NamedValues* values)
    : m_findings(findings), m_values(values)
{}

void CardParser::parse(const CardRule& rule, const QString& text, Card& card)
{
    card.fields = splitFields(text);
    card.isValid = checkCount(rule, card);
    const int count = qMin(card.fields.size(), fieldCount(rule.section));
    for (int index = 0; index < count; ++index) {
        card.isValid = parseField(rule, card, index) && card.isValid;
    }
    card.isValid = card.isValid && shortenFields(card);
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
    const bool isInteger = index < integerFieldCount(rule.section);
    const bool isNamed = m_values != nullptr && !isPlainNumber(card.fields.at(index));
    if (isNamed && !evaluateField(card, index, isInteger)) {
        (isInteger ? card.integers.append(0) : card.numbers.append(0));
        return false;
    }
    return isInteger ? parseInteger(card, index) : parseNumber(card, index);
}

// Puts the value in the place of the name or expression.
bool CardParser::evaluateField(Card& card, int index, bool isInteger)
{
    QString& field = card.fields[index];
    const ExpressionResult result = evaluate(field, *m_values);
    if (result.fault != ExpressionFault::None) {
        reportExpression(
            m_findings, card.line,
            QStringLiteral("field %1 of card %2").arg(QString::number(index + 1), card.mnemonic),
            field, result);
        return false;
    }
    const double whole = std::round(result.value);
    const bool isWhole =
        std::abs(result.value - whole) <= tolerance * std::max(1.0, std::abs(whole));
    if (isInteger && isWhole) {
        field = QString::number(whole, 'f', 0);
    } else {
        field = plainNumber(result.value);
        m_evaluated.append({index, result.value});
    }
    return true;
}

// With all their digits the values may not fit into a line of the engine.
bool CardParser::shortenFields(Card& card)
{
    const auto length = [&card] {
        return card.mnemonic.size() + 1 + card.fields.join(QLatin1Char(' ')).size();
    };
    for (int digits = mostDigits; digits >= fewestDigits; --digits) {
        if (m_evaluated.isEmpty() || length() <= longestLine) {
            return true;
        }
        for (const auto& evaluated : qAsConst(m_evaluated)) {
            card.fields[evaluated.first] = QString::number(evaluated.second, 'g', digits);
        }
    }
    if (length() <= longestLine) {
        return true;
    }
    m_findings.add(FindingKind::LineTooLong, card.line,
                   {QString::number(length()), QString::number(longestLine)});
    return false;
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
    const bool isNumber = isPlainNumber(field);
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
    if (!isPlainNumber(field)) {
        report(FindingKind::NotNumber, card, index);
        return false;
    }
    if (!isInRange || !std::isfinite(value) || std::abs(value) > largestNumber) {
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
