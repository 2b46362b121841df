// SPDX-License-Identifier: MIT
#include "Preprocessor.h"

#include "CardRules.h"
#include "ControlCheck.h"
#include "DeckOrder.h"
#include "DeckReader.h"
#include "Expression.h"
#include "ModelFile.h"
#include "StructureBuilder.h"

#include <QStringList>

#include <cmath>

namespace suite {

namespace {

// A segment of exactly a tenth of the wavelength is fine, whatever the last digits say.
constexpr double tolerance = 1e-6;

QString text(double value)
{
    return QString::number(value, 'g', 6);
}

QString groundText(int type)
{
    switch (type) {
    case 0:
        return QStringLiteral("real, by reflection coefficients");
    case 1:
        return QStringLiteral("perfect");
    case 2:
        return QStringLiteral("real, by the Sommerfeld method");
    default:
        return QStringLiteral("none (free space)");
    }
}

} // namespace

Preprocessor::Preprocessor(const ModelFile& file)
{
    m_model.deck = DeckReader(m_findings).readFile(file);
    check();
}

Preprocessor::Preprocessor(const QByteArray& deck)
{
    m_model.deck = DeckReader(m_findings).readBytes(deck);
    check();
}

void Preprocessor::check()
{
    if (m_findings.hasFatalErrors()) {
        return;
    }
    checkOrder(m_model.deck, m_findings);
    buildStructure();
    checkControls();
    takeOptimisation();
    takeAdaptiveSampling();
    if (m_model.frequencies.count > 0) {
        warnOfSegments();
    }
    if (!m_findings.hasErrors()) {
        addNotices();
    }
}

void Preprocessor::buildStructure()
{
    StructureBuilder builder(m_findings);
    for (const Card& card : qAsConst(m_model.deck.cards)) {
        if (cardRule(card.mnemonic)->section == Section::Geometry) {
            builder.apply(card);
        }
    }
    m_model.structure = builder.finish();
}

void Preprocessor::checkControls()
{
    ControlCheck control(m_model, m_findings);
    for (int index = 0; index < m_model.deck.cards.size(); ++index) {
        if (cardRule(m_model.deck.cards.at(index).mnemonic)->section == Section::Control) {
            control.check(index);
        }
    }
}

void Preprocessor::takeOptimisation()
{
    m_model.optimisation = readOptimisation(m_model.deck, m_findings);
    const FrequencyRange& range = m_model.frequencies;
    if (m_model.optimisation && m_model.optimisation->frequency == 0 && range.count > 0) {
        m_model.optimisation->frequency = (range.lowest() + range.highest()) / 2;
    }
}

void Preprocessor::takeAdaptiveSampling()
{
    m_model.adaptive = readAdaptiveSampling(m_model.deck, m_findings);
    if (m_model.adaptive.isWanted && !m_model.hasVoltageSource) {
        m_findings.add(FindingKind::AdaptiveWithoutSource, m_model.adaptive.line);
    }
}

// One warning of each kind a wire; copies repeat what their original was told.
void Preprocessor::warnOfSegments()
{
    const double shortestWave = wavelength(m_model.frequencies.highest());
    for (const Wire& wire : qAsConst(m_model.structure.wires)) {
        const QString name = wire.name();
        const double longest = wire.longestSegment();
        const double shortest = wire.shortestSegment();
        if (longest > shortestWave / 10 * (1 + tolerance)) {
            m_findings.addAtWire(FindingKind::LongSegment, wire.line, wire.tag,
                                 {name, text(longest), text(shortestWave)});
        }
        if (shortest < 8 * wire.radius * (1 - tolerance)) {
            m_findings.addAtWire(FindingKind::ThickSegment, wire.line, wire.tag,
                                 {name, text(shortest), text(wire.radius)});
        }
    }
}

void Preprocessor::addNotices()
{
    const Structure& structure = m_model.structure;
    const FrequencyRange& range = m_model.frequencies;
    const QString lowest = text(range.lowest());
    const QString highest = text(range.highest());
    m_findings.add(
        FindingKind::WireCount, 0,
        {QString::number(structure.wires.size()), QString::number(structure.patchCards)});
    m_findings.add(FindingKind::SegmentCount, 0, {QString::number(structure.segmentCount())});
    m_findings.add(FindingKind::FrequencyCount, 0, {QString::number(range.count), lowest, highest});
    m_findings.add(FindingKind::WavelengthRange, 0,
                   {text(wavelength(range.highest())), text(wavelength(range.lowest()))});
    m_findings.add(FindingKind::GroundKind, 0, {groundText(m_model.groundType)});
    m_findings.add(FindingKind::ExcitationCount, 0, {QString::number(m_model.excitationCount)});
}

QStringList Preprocessor::variables() const
{
    const FrequencyRange& range = m_model.frequencies;
    const QVector<QPair<QString, QString>> table = {
        {QStringLiteral("wires"), QString::number(m_model.structure.wires.size())},
        {QStringLiteral("patch_cards"), QString::number(m_model.structure.patchCards)},
        {QStringLiteral("segments"), QString::number(m_model.structure.segmentCount())},
        {QStringLiteral("excitations"), QString::number(m_model.excitationCount)},
        {QStringLiteral("ground_type"), QString::number(m_model.groundType)},
        {QStringLiteral("frequencies"), QString::number(range.count)},
        {QStringLiteral("frequency_start_MHz"), QString::number(range.start, 'g', 10)},
        {QStringLiteral("frequency_step"), QString::number(range.step, 'g', 10)},
        {QStringLiteral("frequency_lowest_MHz"), QString::number(range.lowest(), 'g', 10)},
        {QStringLiteral("frequency_highest_MHz"), QString::number(range.highest(), 'g', 10)},
    };
    QStringList result;
    for (const auto& row : table) {
        result.append(row.first + QStringLiteral(" = ") + row.second);
    }
    for (const NamedValue& named : m_model.deck.names.all()) {
        if (std::isfinite(named.value)) {
            result.append(named.name + QStringLiteral(" = ") + plainNumber(named.value));
        }
    }
    return result;
}

} // namespace suite
