// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace suite {

class NamedValues;

enum class ExpressionFault {
    None,
    Malformed,
    UnknownName,
    UnusableName, ///< its definition has an error
    DivisionByZero,
    OutOfRange,
};

struct ExpressionResult
{
    double value = 0;
    ExpressionFault fault = ExpressionFault::None;
    QString culprit; ///< the unknown name
};

/// Evaluates numbers and names joined by + - * / and parentheses, such as "-L/2" or "3*(L+0.1)".
/// Blanks are allowed. Takes linear time.
ExpressionResult evaluate(const QString& text, const NamedValues& values);

/// Whether the text is a number without any operation; a sign may stand before it.
bool isPlainNumber(const QString& text);

/// Formats a number for a deck, so that reading it gives the same value.
QString plainNumber(double value);

} // namespace suite
