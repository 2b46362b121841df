// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// A regular expression in which "/" stands for the beginning of a path and for its separators, as
/// this system writes them.
inline QString pathPattern(QString pattern)
{
#ifdef Q_OS_WIN
    pattern.replace(QLatin1Char('/'), QStringLiteral("(?:[A-Z]:)?[/\\\\]"));
#endif
    return pattern;
}
