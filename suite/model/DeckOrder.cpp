// SPDX-License-Identifier: MIT
#include "DeckOrder.h"

#include "CardRules.h"

#include <QMap>
#include <QSet>

namespace suite {

namespace {

bool isExecution(const QString& mnemonic)
{
    static const QSet<QString> names = {QStringLiteral("XQ"), QStringLiteral("RP"),
                                        QStringLiteral("NE"), QStringLiteral("NH")};
    return names.contains(mnemonic);
}

// Line of the first card of each kind; executions count as "XQ", wires and patches as "GW".
QMap<QString, int> firstLines(const Deck& deck)
{
    static const QSet<QString> solids = {QStringLiteral("GW"), QStringLiteral("GA"),
                                         QStringLiteral("GH"), QStringLiteral("SP"),
                                         QStringLiteral("SM")};
    QMap<QString, int> result;
    for (const Card& card : deck.cards) {
        const QString kind = isExecution(card.mnemonic)       ? QStringLiteral("XQ")
                             : solids.contains(card.mnemonic) ? QStringLiteral("GW")
                                                              : card.mnemonic;
        if (!result.contains(kind)) {
            result.insert(kind, card.line);
        }
    }
    return result;
}

void checkPlaces(const Deck& deck, FindingList& findings)
{
    bool geometryEnded = false;
    for (const Card& card : deck.cards) {
        const Section section = cardRule(card.mnemonic)->section;
        if (section == Section::Geometry && geometryEnded) {
            findings.add(FindingKind::GeometryAfterEnd, card.line, {card.mnemonic});
        } else if (section == Section::Control && !geometryEnded) {
            findings.add(FindingKind::ControlBeforeEnd, card.line, {card.mnemonic});
        }
        geometryEnded = geometryEnded || card.mnemonic == QLatin1String("GE");
    }
}

void checkPresence(const QMap<QString, int>& first, int lastLine, FindingList& findings)
{
    struct Row
    {
        const char* mnemonic;
        FindingKind missing;
    };
    static constexpr Row table[] = {
        {"GW", FindingKind::NoGeometry},  {"GE", FindingKind::NoGeometryEnd},
        {"FR", FindingKind::NoFrequency}, {"EX", FindingKind::NoExcitation},
        {"XQ", FindingKind::NoExecution}, {"EN", FindingKind::NoEnd},
    };
    for (const Row& row : table) {
        if (!first.contains(QLatin1String(row.mnemonic))) {
            findings.add(row.missing, lastLine);
        }
    }
}

// A computation takes the frequency and the excitation that stand before it.
void checkExecution(const Deck& deck, const QMap<QString, int>& first, FindingList& findings)
{
    const int start = first.value(QStringLiteral("XQ"));
    for (const Card& card : deck.cards) {
        const bool isNeeded =
            card.mnemonic == QLatin1String("FR") || card.mnemonic == QLatin1String("EX");
        if (isNeeded && card.line > start && start != 0 &&
            first.value(card.mnemonic) == card.line) {
            findings.add(FindingKind::ExecutionTooEarly, start,
                         {QStringLiteral("XQ, RP, NE or NH"), card.mnemonic});
        }
        if (card.mnemonic == QLatin1String("FR") && first.value(card.mnemonic) != card.line) {
            findings.add(FindingKind::SecondFrequency, card.line,
                         {QString::number(first.value(card.mnemonic))});
        }
    }
}

} // namespace

void checkOrder(const Deck& deck, FindingList& findings)
{
    const QMap<QString, int> first = firstLines(deck);
    checkPlaces(deck, findings);
    checkPresence(first, deck.lastLine, findings);
    checkExecution(deck, first, findings);
}

} // namespace suite
