// SPDX-License-Identifier: MIT
#include "SegmentRefinement.h"

#include "StructureBuilder.h"

#include <algorithm>

namespace suite {

namespace {

// Thin wires only: the engine takes the current to flow on the wire's axis.
constexpr double leastRadii = 8;
constexpr double tolerance = 1e-6;

constexpr int currentSlopeSource = 5;

using Refine = Card (*)(const Card& card, int factor);

// Fields are counted from 1, as the card's whole numbers are.
void setField(Card& card, int place, int value)
{
    if (place <= card.fields.size()) {
        card.fields[place - 1] = QString::number(value);
    }
}

// With errors ignored a card may name a segment that no structure has; the engine refuses it.
bool isSegment(int number)
{
    return number >= 1 && number <= mostSegments;
}

void moveToMiddle(Card& card, int place, int factor)
{
    if (isSegment(card.integer(place))) {
        setField(card, place, SegmentRefinement::middle(card.integer(place), factor));
    }
}

Card withSegmentCount(const Card& card, int factor)
{
    Card result = card;
    setField(result, 2, card.integer(2) * factor);
    return result;
}

// A source of the current's slope sits at the first end of its segment, others in the middle.
Card withSource(const Card& card, int factor)
{
    Card result = card;
    if (card.integer(1) == 0) {
        moveToMiddle(result, 3, factor);
    } else if (card.integer(1) == currentSlopeSource && isSegment(card.integer(3))) {
        setField(result, 3, SegmentRefinement::first(card.integer(3), factor));
    }
    return result;
}

Card withTwoSegments(const Card& card, int factor)
{
    Card result = card;
    moveToMiddle(result, 2, factor);
    moveToMiddle(result, 4, factor);
    return result;
}

// One segment becomes the one in its middle, several become all of theirs.
Card withPrintedSegments(const Card& card, int factor)
{
    Card result = card;
    const int from = card.integer(3);
    const int to = card.integer(4);
    if (isSegment(from) && isSegment(to) && to > from) {
        setField(result, 3, SegmentRefinement::first(from, factor));
        setField(result, 4, SegmentRefinement::last(to, factor));
    } else {
        moveToMiddle(result, 3, factor);
        moveToMiddle(result, 4, factor);
    }
    return result;
}

Refine operationOf(const QString& mnemonic)
{
    struct Row
    {
        const char* mnemonic;
        Refine operation;
    };
    static constexpr Row table[] = {
        {"GW", withSegmentCount}, {"GA", withSegmentCount},    {"GH", withSegmentCount},
        {"EX", withSource},       {"NT", withTwoSegments},     {"TL", withTwoSegments},
        {"CP", withTwoSegments},  {"PT", withPrintedSegments}, {"PQ", withPrintedSegments},
    };
    for (const Row& row : table) {
        if (mnemonic == QLatin1String(row.mnemonic)) {
            return row.operation;
        }
    }
    return nullptr;
}

// Why a kind of card stands in the way; empty when it does not.
QString reasonAgainst(const QString& mnemonic)
{
    if (mnemonic == QLatin1String("GC")) {
        return QStringLiteral("the middles of a tapered wire's segments would move");
    }
    const bool isPatch = mnemonic == QLatin1String("SP") || mnemonic == QLatin1String("SM") ||
                         mnemonic == QLatin1String("SC");
    return isPatch ? QStringLiteral("patches have no segments to divide") : QString();
}

// Loads in ohm, henry and farad sit in the middle of each segment; the others are spread over it.
bool isLumped(int loadType)
{
    return loadType == 0 || loadType == 1 || loadType == 4;
}

QByteArray cardBytes(const Card& card)
{
    const QStringList words = QStringList(card.mnemonic) + card.fields;
    return words.join(QLatin1Char(' ')).toLatin1() + '\n';
}

} // namespace

SegmentRefinement::SegmentRefinement(const Model& model) : m_model(model)
{}

FindingList SegmentRefinement::problems() const
{
    FindingList result;
    for (const Card& card : m_model.deck.cards) {
        const QString reason = reasonAgainst(card.mnemonic);
        if (!reason.isEmpty()) {
            result.add(FindingKind::NotRefinable, card.line, {card.mnemonic, reason});
        }
    }
    if (!m_model.hasVoltageSource) {
        result.add(FindingKind::RefinedWithoutSource);
    }
    return result;
}

int SegmentRefinement::segmentCount(int factor) const
{
    return m_model.structure.segmentCount() * factor;
}

FindingList SegmentRefinement::obstacle(int factor) const
{
    FindingList result;
    const qint64 count = static_cast<qint64>(m_model.structure.segmentCount()) * factor;
    if (count > mostSegments) {
        result.add(FindingKind::RefinementLimit, 0,
                   {QStringLiteral("the next one would have %1 segments and the limit is %2")
                        .arg(count)
                        .arg(mostSegments)});
        return result;
    }
    for (const Wire& wire : m_model.structure.wires) {
        if (wire.shortestSegment() / factor < leastRadii * wire.radius * (1 - tolerance)) {
            result.addAtWire(FindingKind::RefinementLimit, wire.line, wire.tag,
                             {QStringLiteral("the segments of %1 would be shorter than eight radii")
                                  .arg(wire.name())});
            break;
        }
    }
    return result;
}

QByteArray SegmentRefinement::deck(int factor, std::optional<double> frequency) const
{
    QByteArray result;
    for (const QByteArray& comment : m_model.deck.comments) {
        result += comment + '\n';
    }
    for (int index = 0; index < m_model.deck.cards.size(); ++index) {
        if (index == m_model.frequencyCard && frequency) {
            result += "FR 0 1 0 0 " + QByteArray::number(*frequency, 'g', 15) + " 0\n";
            continue;
        }
        const QVector<Card> cards = refined(m_model.deck.cards.at(index), factor);
        for (const Card& card : cards) {
            result += cardBytes(card);
        }
    }
    return result;
}

QVector<Card> SegmentRefinement::refined(const Card& card, int factor) const
{
    if (card.mnemonic == QLatin1String("LD")) {
        return refinedLoad(card, factor);
    }
    const Refine operation = operationOf(card.mnemonic);
    return {operation == nullptr ? card : operation(card, factor)};
}

// A lumped load stays one load: a card for each segment that had it.
QVector<Card> SegmentRefinement::refinedLoad(const Card& card, int factor) const
{
    const int tag = card.integer(2);
    int from = card.integer(3);
    int to = qMax(from, card.integer(4));
    const bool isWhole = from == 0 && to == 0;
    const bool isSpread = !isLumped(card.integer(1));
    const bool isStrange = !isWhole && !(isSegment(from) && isSegment(to));
    if ((isWhole && isSpread) || isStrange) {
        return {card};
    }
    Card one = card;
    if (isSpread) {
        setField(one, 3, first(from, factor));
        setField(one, 4, last(to, factor));
        return {one};
    }
    if (isWhole) {
        from = 1;
        to = m_model.structure.segmentCount(tag);
    }
    QVector<Card> result;
    for (int segment = from; segment <= to; ++segment) {
        setField(one, 3, middle(segment, factor));
        setField(one, 4, middle(segment, factor));
        result.append(one);
    }
    return result;
}

} // namespace suite
