#pragma once

#include <QByteArray>
#include <QString>

namespace suite {

class SweepDeck;

/// The comment lines that a file of partial results begins with: what the file is, and the model's
/// cards and the frequencies that its rows belong to.
class PartialHeader
{
public:
    explicit PartialHeader(const SweepDeck& deck);

    /// The lines, with the row of the columns behind them.
    [[nodiscard]] QByteArray bytes() const;

    /// Whether a file's content begins as such a file does, whatever sweep it belongs to.
    static bool isPartial(const QByteArray& start);

    /// Why rows behind this header do not belong to the sweep, as part of a sentence; empty when
    /// they do.
    [[nodiscard]] QString differenceTo(const QByteArray& header) const;

private:
    QByteArray m_cards;
    QByteArray m_frequencies;
};

} // namespace suite
