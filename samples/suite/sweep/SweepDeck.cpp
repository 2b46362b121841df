// SPDX-License-Identifier: MIT
#include "SweepDeck.h"

#include <utility>

namespace suite {

namespace {

// Plot files would be deleted with the engine's folder.
bool isPassedOn(const Card& card)
{
    return card.mnemonic != QLatin1String("PL") && card.mnemonic != QLatin1String("FR");
}

QByteArray cardBytes(const Card& card)
{
    const QString text = card.mnemonic + QLatin1Char(' ') + card.fields.join(QLatin1Char(' '));
    return text.toLatin1() + '\n';
}

} // namespace

SweepDeck::SweepDeck(const Model& model) : SweepDeck(model, model.frequencies.values())
{}

SweepDeck::SweepDeck(const Model& model, QVector<double> frequencies)
    : m_frequencies(std::move(frequencies))
{
    for (const QByteArray& comment : model.deck.comments) {
        m_before += comment + '\n';
    }
    QByteArray* part = &m_before;
    for (int index = 0; index < model.deck.cards.size(); ++index) {
        if (index == model.frequencyCard) {
            part = &m_after;
        } else if (isPassedOn(model.deck.cards.at(index))) {
            *part += cardBytes(model.deck.cards.at(index));
        }
    }
}

SweepDeck SweepDeck::part(const QVector<int>& indices) const
{
    SweepDeck result = *this;
    result.m_frequencies.clear();
    for (const int index : indices) {
        result.m_frequencies.append(frequency(index));
    }
    return result;
}

QByteArray SweepDeck::deck(int index) const
{
    return m_before + "FR 0 1 0 0 " + QByteArray::number(frequency(index), 'g', 15) + " 0\n" +
           m_after;
}

QDataStream& operator<<(QDataStream& stream, const SweepDeck& deck)
{
    return stream << deck.m_before << deck.m_after << deck.m_frequencies;
}

QDataStream& operator>>(QDataStream& stream, SweepDeck& deck)
{
    return stream >> deck.m_before >> deck.m_after >> deck.m_frequencies;
}

} // namespace suite
