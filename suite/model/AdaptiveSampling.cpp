// SPDX-License-Identifier: MIT
#include "AdaptiveSampling.h"

#include "PlainText.h"

#include <QList>

namespace suite {

namespace {

constexpr int mnemonicLength = 2;
constexpr double leastTolerance = 0.0001; // the engine's results have five digits
constexpr double mostTolerance = 0.5;

QList<QByteArray> wordsOf(const QByteArray& comment)
{
    return comment.mid(mnemonicLength).simplified().split(' ');
}

bool readTolerance(const QList<QByteArray>& words, double& tolerance)
{
    if (words.size() == 1) {
        return true;
    }
    bool isNumber = false;
    tolerance = words.at(1).toDouble(&isNumber);
    return isNumber && words.size() == 2 && tolerance >= leastTolerance &&
           tolerance <= mostTolerance;
}

} // namespace

AdaptiveSampling readAdaptiveSampling(const Deck& deck, FindingList& findings)
{
    AdaptiveSampling result;
    for (int index = 0; index < deck.comments.size(); ++index) {
        const QList<QByteArray> words = wordsOf(deck.comments.at(index));
        const int line = deck.commentLines.value(index);
        if (words.first().toLower() != "@adapt") {
            continue;
        }
        if (result.isWanted) {
            findings.add(FindingKind::SecondAdaptive, line, {QString::number(result.line)});
            continue;
        }
        result.isWanted = true;
        result.line = line;
        if (!readTolerance(words, result.tolerance)) {
            const QString given = QString::fromUtf8(words.mid(1).join(' '));
            findings.add(
                FindingKind::BadAdaptiveTolerance, line,
                {QString::number(leastTolerance), QString::number(mostTolerance), excerpt(given)});
            result.tolerance = AdaptiveSampling::usualTolerance;
        }
    }
    return result;
}

} // namespace suite
