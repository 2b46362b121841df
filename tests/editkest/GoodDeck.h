// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

/// A deck in which there is nothing to find.
inline const QByteArray goodDeck =
    QByteArrayLiteral("CM a dipole\nCE\nGW 1 21 0 0 -0.25 0 0 0.25 0.001\nGE 0\n"
                      "FR 0 1 0 0 300 0\nEX 0 1 11 0 1 0\nXQ\nEN\n");
