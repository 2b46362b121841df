// SPDX-License-Identifier: MIT
#pragma once

#include "SystemSkips.h"

#include <QByteArray>
#include <QString>
#include <QtTest>

#include <algorithm>
#include <ctime>
#include <functional>

/// How the time to read something grows with its size. Measured in time of the processor, which
/// does not depend on what else the machine does.
namespace ReadingTime {

// clang-format off
const char* const pieces[] = {
    "x", " ", "\n", "\r", "x\n", " \n",
    "\t", ",", ":", ";", "#", "#\n",
    "=", "%", "0", "9", "-", "*",
    "-*-", "-*-a", "-*-a-b-c", "-*-error-*-", "-*-percentage-*-", "state machine failed.",
    "\"", "\\", "\\n", "(", ")", "[",
    "[a\n", "]", "<", "<b>", "&", "'",
    "!", "@", "$(", "\xc3\xa4", "\xef\xbb\xbf", "\xff",
    "\xf0\x9f\x98\x80", "node:2\n", "a:\n", "1,2,3,4\n", "1e9 ", "nan,",
    "CM x\n", "CE\n", "GW 1 3 0 0 0 0 0 1 0.01\n", "GM 0 1 0 0 0 1 1 1 1\n", "GX 1 111\n", "SY a=1\n",
    "SY a=b\n", "GE\n", "EN\n", "EX 0 1 1\n", "LD 0 1 1 1 1\n", "FR 0 1 0 0 300 1\n",
    "--x\n", "--kest-options\n", "-np 1\n",
};
// clang-format on

/// Rows with the column "piece": large inputs of one piece over and over, which are valid for no
/// reader, and which all readers must read to the end.
inline void addPieces()
{
    QTest::addColumn<QByteArray>("piece");
    for (const QByteArray piece : pieces) {
        QTest::newRow(piece.toPercentEncoding().constData()) << piece;
    }
}

inline double secondsFor(const std::function<void(const QByteArray&)>& read,
                         const QByteArray& content)
{
    const std::clock_t begin = std::clock();
    read(content);
    return static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC;
}

/// Why reading so many bytes, a megabyte, takes too long; empty when it does not. A time that grows
/// with the square of the size is 64 times as long for eight times the size. An eighth of the bytes
/// under Wine, where memory is given out ten times as slowly.
inline QString problem(const std::function<void(const QByteArray&)>& read, const QByteArray& piece,
                       int wanted = 1 << 20)
{
    constexpr int times = 8;
    const int size = Wine::isHere() ? wanted / 8 : wanted;
    const auto secondsOf = [&](int bytes) {
        return secondsFor(read, piece.repeated(bytes / piece.size()));
    };
    const auto isTooLong = [](double few, double many) { return many > 3 * times * few + 0.2; };
    double few = secondsOf(size / times);
    double many = secondsOf(size);
    for (int again = 0; again < 3 && isTooLong(few, many); ++again) {
        few = std::max(few, secondsOf(size / times));
        many = std::min(many, secondsOf(size));
    }
    return isTooLong(few, many) ? QStringLiteral("%1 s for %2 bytes, and %3 s for %4 bytes")
                                      .arg(few)
                                      .arg(size / times)
                                      .arg(many)
                                      .arg(size)
                                : QString();
}

} // namespace ReadingTime
