// SPDX-License-Identifier: MIT
#pragma once

#include "Model.h"

#include <QDataStream>

namespace suite {

/// Makes the decks for the engine: the model's cards in plain form, at one frequency each.
class SweepDeck
{
public:
    SweepDeck() = default;

    /// The model at its own frequencies, or at others.
    explicit SweepDeck(const Model& model);
    SweepDeck(const Model& model, QVector<double> frequencies);

    [[nodiscard]] int count() const { return m_frequencies.size(); }
    [[nodiscard]] double frequency(int index) const { return m_frequencies.at(index); }

    /// The common cards of all decks, with an empty line in place of the frequency's card.
    [[nodiscard]] QByteArray cards() const { return m_before + '\n' + m_after; }

    /// The same cards at some of the frequencies, by their indices.
    [[nodiscard]] SweepDeck part(const QVector<int>& indices) const;

    /// The deck of one frequency.
    [[nodiscard]] QByteArray deck(int index) const;

    /// For transfer to another process.
    friend QDataStream& operator<<(QDataStream& stream, const SweepDeck& deck);
    friend QDataStream& operator>>(QDataStream& stream, SweepDeck& deck);

private:
    QByteArray m_before;
    QByteArray m_after;
    QVector<double> m_frequencies;
};

} // namespace suite
