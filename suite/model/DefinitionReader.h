// SPDX-License-Identifier: MIT
#pragma once

#include "Expression.h"
#include "Finding.h"
#include "NamedValues.h"

#include <QByteArray>

namespace suite {

/// Reads SY cards, which define named values: "SY L=0.5, H=L/2 ! metres". A value may use names
/// that are already defined.
class DefinitionReader
{
public:
    DefinitionReader(NamedValues& values, FindingList& findings);

    /// Reads one card; "line" is the whole line, "number" the line's number.
    void read(const QByteArray& line, int number);

private:
    void readDefinition(const QString& text, int column);
    bool checkName(const QString& name);
    double valueOf(const QString& name, const QString& text);

    NamedValues& m_values;
    FindingList& m_findings;
    int m_line = 0;
    bool m_isFull = false;
};

/// Reports why an expression has no value. `where` names its field or definition.
void reportExpression(FindingList& findings, int line, const QString& where, const QString& text,
                      const ExpressionResult& result);

} // namespace suite
