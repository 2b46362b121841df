// SPDX-License-Identifier: MIT
#pragma once

#include "Preprocessor.h"

inline QString latin1(const char* text)
{
    return QString::fromLatin1(text);
}

// A dipole of half the length H on both sides; the second line is a comment, the third card an SY.
inline QByteArray deckWith(const char* definition, const char* wire,
                           const char* comment = "CM nothing to tell")
{
    return QByteArray("CM A dipole\n") + comment + "\nCE\n" + definition + '\n' + wire +
           "\nGE 0\nFR 0 3 0 0 290 5\nEX 0 1 11 0 1 0\nXQ\nEN\n";
}

inline constexpr const char* wireLine = "GW 1 21 0 0 -H 0 0 H 0.001";

inline QVector<QPair<int, int>> mistakes(const suite::Preprocessor& checked)
{
    QVector<QPair<int, int>> result;
    const auto findings = checked.findings().sorted();
    for (const suite::Finding& finding : findings) {
        if (finding.severity() == suite::Severity::Fatal ||
            finding.severity() == suite::Severity::Error) {
            result.append({finding.number(), finding.line});
        }
    }
    return result;
}
