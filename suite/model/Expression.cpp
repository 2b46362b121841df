// SPDX-License-Identifier: MIT
#include "Expression.h"

#include "NamedValues.h"

#include <QLocale>
#include <QRegularExpression>

#include <cmath>

namespace suite {

namespace {

constexpr int deepestNesting = 100;

bool isDigit(QChar character)
{
    return character >= QLatin1Char('0') && character <= QLatin1Char('9');
}

bool isLetter(QChar character)
{
    const QChar lower = character.toLower();
    return character.unicode() < 0x80 && lower >= QLatin1Char('a') && lower <= QLatin1Char('z');
}

bool isWordPart(QChar character)
{
    return isDigit(character) || isLetter(character) || character == QLatin1Char('_');
}

// Reads an expression from left to right. After the first fault nothing more is read.
class ExpressionReader
{
public:
    ExpressionReader(const QString& text, const NamedValues& values)
        : m_text(text), m_values(values)
    {}

    ExpressionResult read()
    {
        const double value = sum();
        if (m_place != m_text.size()) {
            fail(ExpressionFault::Malformed);
        }
        m_result.value = m_result.fault == ExpressionFault::None ? value : 0;
        return m_result;
    }

private:
    double sum()
    {
        double value = product();
        for (;;) {
            if (take('+')) {
                value = checked(value + product());
            } else if (take('-')) {
                value = checked(value - product());
            } else {
                return value;
            }
        }
    }

    double product()
    {
        double value = factor();
        for (;;) {
            if (take('*')) {
                value = checked(value * factor());
            } else if (take('/')) {
                value = quotient(value, factor());
            } else {
                return value;
            }
        }
    }

    double quotient(double value, double divisor)
    {
        if (divisor == 0) {
            fail(ExpressionFault::DivisionByZero);
            return 0;
        }
        return checked(value / divisor);
    }

    double factor()
    {
        bool isNegative = false;
        for (;;) {
            if (take('-')) {
                isNegative = !isNegative;
            } else if (!take('+')) {
                break;
            }
        }
        const double value = operand();
        return isNegative ? -value : value;
    }

    double operand()
    {
        if (take('(')) {
            return nested();
        }
        const QChar character = current();
        if (isLetter(character)) {
            return named();
        }
        if (isDigit(character) || character == QLatin1Char('.')) {
            return number();
        }
        fail(ExpressionFault::Malformed);
        return 0;
    }

    double nested()
    {
        if (++m_depth > deepestNesting) {
            fail(ExpressionFault::Malformed);
            return 0;
        }
        const double value = sum();
        --m_depth;
        if (!take(')')) {
            fail(ExpressionFault::Malformed);
        }
        return value;
    }

    double named()
    {
        const int start = m_place;
        while (isWordPart(current())) {
            ++m_place;
        }
        const QString name = m_text.mid(start, m_place - start);
        const NamedValue* known = m_values.find(name);
        if (known == nullptr) {
            fail(ExpressionFault::UnknownName, name);
            return 0;
        }
        if (std::isnan(known->value)) {
            fail(ExpressionFault::UnusableName, name);
            return 0;
        }
        return known->value;
    }

    double number()
    {
        const int start = m_place;
        int digits = skipDigits();
        if (current() == QLatin1Char('.')) {
            ++m_place;
            digits += skipDigits();
        }
        if (digits == 0 || !skipExponent()) {
            fail(ExpressionFault::Malformed);
            return 0;
        }
        bool isNumber = false;
        const double value = QStringView(m_text).mid(start, m_place - start).toDouble(&isNumber);
        if (!isNumber) {
            fail(ExpressionFault::OutOfRange);
        }
        return value;
    }

    int skipDigits()
    {
        const int start = m_place;
        while (isDigit(current())) {
            ++m_place;
        }
        return m_place - start;
    }

    // False when an exponent has begun and holds no digit.
    bool skipExponent()
    {
        if (current().toLower() != QLatin1Char('e')) {
            return true;
        }
        ++m_place;
        if (current() == QLatin1Char('+') || current() == QLatin1Char('-')) {
            ++m_place;
        }
        return skipDigits() > 0;
    }

    double checked(double value)
    {
        if (!std::isfinite(value)) {
            fail(ExpressionFault::OutOfRange);
        }
        return value;
    }

    QChar current() const { return m_place < m_text.size() ? m_text.at(m_place) : QChar(); }

    void skipBlanks()
    {
        while (current() == QLatin1Char(' ') || current() == QLatin1Char('\t')) {
            ++m_place;
        }
    }

    bool take(char expected)
    {
        skipBlanks();
        if (current() != QLatin1Char(expected)) {
            return false;
        }
        ++m_place;
        skipBlanks();
        return true;
    }

    void fail(ExpressionFault fault, const QString& culprit = QString())
    {
        if (m_result.fault == ExpressionFault::None) {
            m_result.fault = fault;
            m_result.culprit = culprit;
        }
        m_place = m_text.size();
    }

    const QString& m_text;
    const NamedValues& m_values;
    ExpressionResult m_result;
    int m_place = 0;
    int m_depth = 0;
};

} // namespace

ExpressionResult evaluate(const QString& text, const NamedValues& values)
{
    return ExpressionReader(text, values).read();
}

bool isPlainNumber(const QString& text)
{
    static const QRegularExpression pattern(
        QStringLiteral("\\A[+-]?([0-9]+\\.?[0-9]*|\\.[0-9]+)([eE][+-]?[0-9]+)?\\z"));
    return pattern.match(text).hasMatch();
}

QString plainNumber(double value)
{
    return QString::number(value, 'g', QLocale::FloatingPointShortest);
}

} // namespace suite
