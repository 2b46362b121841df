// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

namespace suite {

class SweepDeck;

/// The comment lines at the beginning of a file of partial results: a title, and checksums of the
/// model's cards and of the frequencies.
class PartialHeader
{
public:
    explicit PartialHeader(const SweepDeck& deck);

    /// The lines, followed by the row of column names.
    [[nodiscard]] QByteArray bytes() const;

    /// Whether a content begins like a file of partial results of any sweep.
    static bool isPartial(const QByteArray& start);

    /// Why rows behind this header do not belong to the sweep, as part of a sentence; empty if they
    /// do.
    [[nodiscard]] QString differenceTo(const QByteArray& header) const;

private:
    QByteArray m_cards;
    QByteArray m_frequencies;
};

} // namespace suite
