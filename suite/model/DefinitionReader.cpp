// SPDX-License-Identifier: MIT
#include "DefinitionReader.h"

#include "CardRules.h"
#include "Expression.h"
#include "PlainText.h"

#include <QRegularExpression>

#include <algorithm>
#include <cmath>
#include <limits>

namespace suite {

namespace {

constexpr int longestName = 32;
constexpr int mostNames = 1000;
constexpr int mnemonicLength = 2;

// Beyond this no length, frequency or material constant has a meaning.
constexpr double largestValue = 1e15;

bool isBlank(char character)
{
    return character == ' ' || character == '\t';
}

bool beginsRemark(char character)
{
    return character == '!' || character == '#' || character == '\'';
}

// Empty when the name can be used.
QString nameProblem(const QString& name)
{
    static const QRegularExpression pattern(QStringLiteral("\\A[A-Za-z][A-Za-z0-9_]*\\z"));
    static const QStringList numbers = {QStringLiteral("INF"), QStringLiteral("INFINITY"),
                                        QStringLiteral("NAN")};
    if (!pattern.match(name).hasMatch()) {
        return QStringLiteral("it must begin with a letter and hold letters, digits and "
                              "underscores only");
    }
    if (name.size() > longestName) {
        return QStringLiteral("it is longer than %1 characters").arg(longestName);
    }
    if (cardRule(name.toUpper()) != nullptr) {
        return QStringLiteral("a card is called so");
    }
    return numbers.contains(name.toUpper()) ? QStringLiteral("it reads like a number") : QString();
}

} // namespace

void reportExpression(FindingList& findings, int line, const QString& where, const QString& text,
                      const ExpressionResult& result)
{
    const QString shown = excerpt(text);
    switch (result.fault) {
    case ExpressionFault::None:
    case ExpressionFault::UnusableName:
        break;
    case ExpressionFault::Malformed:
        findings.add(FindingKind::BadExpression, line, {where, shown});
        break;
    case ExpressionFault::UnknownName:
        findings.add(FindingKind::UnknownName, line, {where, excerpt(result.culprit)});
        break;
    case ExpressionFault::DivisionByZero:
        findings.add(FindingKind::DivisionByZero, line, {where, shown});
        break;
    case ExpressionFault::OutOfRange:
        findings.add(FindingKind::ValueOutOfRange, line, {where, shown});
        break;
    }
}

DefinitionReader::DefinitionReader(NamedValues& values, FindingList& findings)
    : m_values(values), m_findings(findings)
{}

void DefinitionReader::read(const QByteArray& line, int number)
{
    m_line = number;
    const auto* mnemonic = std::find_if_not(line.begin(), line.end(), isBlank);
    const auto* remark = std::find_if(line.begin(), line.end(), beginsRemark);
    int column = static_cast<int>(mnemonic - line.begin()) + mnemonicLength;
    const QByteArray content = line.left(static_cast<int>(remark - line.begin())).mid(column);
    const QStringList definitions = QString::fromLatin1(content).split(QLatin1Char(','));
    for (const QString& definition : definitions) {
        readDefinition(definition, column);
        column += definition.size() + 1;
    }
}

void DefinitionReader::readDefinition(const QString& text, int column)
{
    const int sign = text.indexOf(QLatin1Char('='));
    const QString name = text.left(sign).trimmed();
    const QString expression = sign < 0 ? QString() : text.mid(sign + 1).trimmed();
    if (name.isEmpty() || expression.isEmpty()) {
        m_findings.add(FindingKind::BadDefinition, m_line, {excerpt(text.trimmed())});
        return;
    }
    if (!checkName(name)) {
        return;
    }
    NamedValue value;
    value.name = name;
    value.line = m_line;
    value.column = column + text.indexOf(expression, sign + 1);
    value.length = expression.size();
    value.isPlain = isPlainNumber(expression);
    value.value = valueOf(name, expression);
    m_values.add(value);
}

bool DefinitionReader::checkName(const QString& name)
{
    const QString problem = nameProblem(name);
    if (!problem.isEmpty()) {
        m_findings.add(FindingKind::BadName, m_line, {excerpt(name), problem});
        return false;
    }
    if (const NamedValue* first = m_values.find(name)) {
        m_findings.add(FindingKind::SecondDefinition, m_line, {name, QString::number(first->line)});
        return false;
    }
    if (m_values.all().size() < mostNames) {
        return true;
    }
    if (!m_isFull) {
        m_isFull = true;
        m_findings.add(FindingKind::TooManyNames, m_line, {QString::number(mostNames)});
    }
    return false;
}

// Not a number when the expression has no value: the mistake is told once, not where it is used.
double DefinitionReader::valueOf(const QString& name, const QString& text)
{
    ExpressionResult result = evaluate(text, m_values);
    if (std::abs(result.value) > largestValue) {
        result.fault = ExpressionFault::OutOfRange;
    }
    if (result.fault == ExpressionFault::None) {
        return result.value;
    }
    reportExpression(m_findings, m_line, QStringLiteral("the value of %1").arg(name), text, result);
    return std::numeric_limits<double>::quiet_NaN();
}

} // namespace suite
