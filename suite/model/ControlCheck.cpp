// SPDX-License-Identifier: MIT
#include "ControlCheck.h"

#include <QStringList>

#include <algorithm>
#include <cmath>

namespace suite {

namespace {

constexpr int mostFrequencies = 10000;
constexpr double mostPoints = 1e6;
constexpr int lastVoltageSource = 5; // type 0 and type 5 drive a segment, the others do not
constexpr int conductivityLoad = 5;

bool isVoltageSource(int type)
{
    return type == 0 || type == lastVoltageSource;
}

// Counts of 0 mean 1 to the engine.
double atLeastOne(int count)
{
    return count > 1 ? count : 1;
}

} // namespace

ControlCheck::ControlCheck(Model& model, FindingList& findings)
    : m_model(model), m_findings(findings)
{}

void ControlCheck::check(int index)
{
    using Operation = void (ControlCheck::*)(const Card&);
    struct Row
    {
        const char* mnemonic;
        Operation operation;
    };
    static constexpr Row table[] = {
        {"FR", &ControlCheck::checkFrequency},  {"EX", &ControlCheck::checkExcitation},
        {"LD", &ControlCheck::checkLoad},       {"NT", &ControlCheck::checkConnection},
        {"TL", &ControlCheck::checkConnection}, {"CP", &ControlCheck::checkConnection},
        {"GN", &ControlCheck::checkGround},     {"RP", &ControlCheck::checkPattern},
        {"NE", &ControlCheck::checkNearField},  {"NH", &ControlCheck::checkNearField},
        {"PL", &ControlCheck::checkPlot},
    };
    const Card& card = m_model.deck.cards.at(index);
    if (!card.isValid) {
        return;
    }
    if (card.mnemonic == QLatin1String("FR") && m_model.frequencyCard < 0) {
        m_model.frequencyCard = index;
    }
    for (const Row& row : table) {
        if (card.mnemonic == QLatin1String(row.mnemonic)) {
            (this->*row.operation)(card);
        }
    }
}

void ControlCheck::checkFrequency(const Card& card)
{
    const int type = card.integer(1);
    const int count = card.integer(2);
    FrequencyRange range;
    range.isMultiplying = type == 1;
    range.count = qMax(count, 1);
    range.start = card.number(1);
    range.step = card.number(2);
    if (count < 0 || count > mostFrequencies) {
        m_findings.add(FindingKind::TooManyFrequencies, card.line,
                       {QString::number(count), QString::number(mostFrequencies)});
    } else if (type != 0 && type != 1) {
        m_findings.add(FindingKind::BadFrequencyType, card.line, {QString::number(type)});
    } else if (!(range.start > 0)) {
        m_findings.add(FindingKind::BadFrequency, card.line, {QString::number(range.start)});
    } else if (range.count > 1 && (range.step == (range.isMultiplying ? 1 : 0) ||
                                   !(range.lowest() > 0) || !std::isfinite(range.highest()))) {
        m_findings.add(FindingKind::BadFrequencyStep, card.line,
                       {QString::number(range.step), QString::number(range.count)});
    } else if (m_model.frequencies.count == 0) {
        m_model.frequencies = range;
    }
}

void ControlCheck::checkExcitation(const Card& card)
{
    ++m_model.excitationCount;
    if (!checkType(card, 0, lastVoltageSource) || !isVoltageSource(card.integer(1))) {
        return;
    }
    if (card.fields.size() < 3) {
        m_findings.add(FindingKind::MissingFields, card.line,
                       {card.mnemonic, QStringLiteral("3"), QString::number(card.fields.size())});
        return;
    }
    m_model.hasVoltageSource = true;
    checkSegment(card, card.integer(2), card.integer(3));
}

void ControlCheck::checkLoad(const Card& card)
{
    const int type = card.integer(1);
    if (!checkType(card, -1, conductivityLoad) || type == -1) {
        return;
    }
    if (card.fields.size() < 5) {
        m_findings.add(FindingKind::MissingFields, card.line,
                       {card.mnemonic, QStringLiteral("5"), QString::number(card.fields.size())});
        return;
    }
    const int tag = card.integer(2);
    const int first = card.integer(3);
    const int last = card.integer(4);
    const bool isWholeTag = first == 0 && last == 0;
    if (last != 0 && last < first) {
        m_findings.add(FindingKind::BadLoadRange, card.line,
                       {QString::number(first), QString::number(last)});
    } else if (isWholeTag) {
        checkTag(card, tag);
    } else if (checkSegment(card, tag, first) && last > first) {
        checkSegment(card, tag, last);
    }
    checkLoadValue(card);
}

void ControlCheck::checkLoadValue(const Card& card)
{
    if (card.integer(1) == conductivityLoad && !(card.number(1) > 0)) {
        m_findings.add(FindingKind::BadLoadValue, card.line,
                       {QStringLiteral("the wire's conductivity must be greater than 0")});
    }
}

// Networks, transmission lines and couplings name two segments.
void ControlCheck::checkConnection(const Card& card)
{
    checkSegment(card, card.integer(1), card.integer(2));
    checkSegment(card, card.integer(3), card.integer(4));
    if (card.mnemonic == QLatin1String("TL") && card.number(1) == 0) {
        m_findings.add(FindingKind::BadLine, card.line);
    }
}

void ControlCheck::checkGround(const Card& card)
{
    const int type = card.integer(1);
    if (!checkType(card, -1, 2)) {
        return;
    }
    m_model.groundType = type;
    const bool isReal = type == 0 || type == 2;
    if (isReal && !(card.number(1) >= 1)) {
        m_findings.add(FindingKind::BadGround, card.line, {QString::number(card.number(1))});
    }
}

void ControlCheck::checkPattern(const Card& card)
{
    if (checkType(card, 0, 6)) {
        checkPoints(card, atLeastOne(card.integer(2)) * atLeastOne(card.integer(3)));
    }
}

void ControlCheck::checkNearField(const Card& card)
{
    if (checkType(card, 0, 1)) {
        checkPoints(card, atLeastOne(card.integer(2)) * atLeastOne(card.integer(3)) *
                              atLeastOne(card.integer(4)));
    }
}

void ControlCheck::checkPlot(const Card& card)
{
    m_findings.add(FindingKind::PlotFileDropped, card.line);
}

bool ControlCheck::checkType(const Card& card, int least, int most)
{
    const int type = card.integer(1);
    if (type >= least && type <= most) {
        return true;
    }
    m_findings.add(FindingKind::BadCardType, card.line, {card.mnemonic, QString::number(type)});
    return false;
}

// With tag 0 the segment is counted through the whole structure.
bool ControlCheck::checkSegment(const Card& card, int tag, int segment)
{
    if (!checkTag(card, tag)) {
        return false;
    }
    const int count = m_model.structure.segmentCount(tag);
    if (segment >= 1 && segment <= count) {
        return true;
    }
    m_findings.add(
        FindingKind::UnknownSegment, card.line,
        {card.mnemonic, QString::number(segment), QString::number(tag), QString::number(count)});
    return false;
}

bool ControlCheck::checkTag(const Card& card, int tag)
{
    if (tag == 0) {
        return true;
    }
    const QVector<Wire>& wires = m_model.structure.wires;
    if (std::any_of(wires.begin(), wires.end(),
                    [tag](const Wire& wire) { return wire.tag == tag; })) {
        return true;
    }
    m_findings.add(FindingKind::UnknownTag, card.line, {card.mnemonic, QString::number(tag)});
    return false;
}

void ControlCheck::checkPoints(const Card& card, double count)
{
    if (count > mostPoints) {
        m_findings.add(
            FindingKind::TooManyAngles, card.line,
            {card.mnemonic, QString::number(count, 'g', 12), QString::number(mostPoints, 'g', 12)});
    }
}

} // namespace suite
