// SPDX-License-Identifier: MIT
#pragma once

#include "SuiteRun.h"

#include <Text.h>

inline QString program()
{
    return suiteHome() + text("/bin/adaptkest");
}

inline QByteArray adaptiveDipole(const QString& frequencies = text("FR 0 51 0 0 250 2"))
{
    QStringList cards = dipoleCards();
    cards[4] = frequencies;
    cards.insert(1, text("CM @adapt 0.005"));
    return deckOf(cards);
}
