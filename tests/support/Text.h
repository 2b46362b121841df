// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

/// A literal, in UTF-8, as Qt has texts.
inline QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

/// What blanks separate in a literal.
inline QStringList words(const char* utf8)
{
    return text(utf8).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}
