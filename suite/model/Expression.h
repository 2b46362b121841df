#pragma once

#include <QString>

namespace suite {

class NamedValues;

enum class ExpressionFault {
    None,
    Malformed,
    UnknownName,
    UnusableName, ///< its own definition holds a mistake
    DivisionByZero,
    OutOfRange,
};

struct ExpressionResult
{
    double value = 0;
    ExpressionFault fault = ExpressionFault::None;
    QString culprit; ///< the name that is unknown
};

/// Evaluates numbers and names joined by + - * / and parentheses, such as "-L/2" or "3*(L+0.1)".
/// Blanks may stand between them. Takes time in proportion to the text's length.
ExpressionResult evaluate(const QString& text, const NamedValues& values);

/// Whether the text is a number without any operation; a sign may stand before it.
bool isPlainNumber(const QString& text);

/// The number as a deck shows it, so that reading it gives the same value again.
QString plainNumber(double value);

} // namespace suite
