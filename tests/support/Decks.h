// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QStringList>

/// A good model: the cards of a half-wave dipole, solved at three frequencies.
inline QStringList dipoleCards()
{
    return {
        QStringLiteral("CM A dipole"),
        QStringLiteral("CE"),
        QStringLiteral("GW 1 21 0 0 -0.25 0 0 0.25 0.001"),
        QStringLiteral("GE 0"),
        QStringLiteral("FR 0 3 0 0 290 5"),
        QStringLiteral("EX 0 1 11 0 1 0"),
        QStringLiteral("XQ"),
        QStringLiteral("EN"),
    };
}

/// The file of these cards.
inline QByteArray deckOf(const QStringList& cards)
{
    return cards.join(QLatin1Char('\n')).toUtf8() + '\n';
}
