// SPDX-License-Identifier: MIT
#include "PartialHeader.h"

#include "PartialRow.h"
#include "SweepDeck.h"

#include <QCryptographicHash>

namespace suite {

namespace {

// To be increased when the format of the rows or of the engine's decks changes.
constexpr int formatNumber = 1;

// The lines of the header, by index.
constexpr int titleLine = 0;
constexpr int formatLine = 1;
constexpr int cardsLine = 2;
constexpr int frequenciesLine = 3;

QByteArray title()
{
    return "# Partial results: the sweep was not completed. \"runkest MODEL --resume\" computes "
           "the rest.";
}

QByteArray format()
{
    return "# format " + QByteArray::number(formatNumber);
}

QByteArray hashOf(const QByteArray& bytes)
{
    return QCryptographicHash::hash(bytes, QCryptographicHash::Sha256).toHex();
}

QByteArray frequenciesText(const SweepDeck& deck)
{
    QByteArray exact;
    for (int i = 0; i < deck.count(); ++i) {
        exact += QByteArray::number(deck.frequency(i), 'g', 17) + ' ';
    }
    return "# frequencies " + QByteArray::number(deck.count()) + " from " +
           QByteArray::number(deck.frequency(0), 'g', 10) + " MHz to " +
           QByteArray::number(deck.frequency(deck.count() - 1), 'g', 10) + " MHz, " + hashOf(exact);
}

} // namespace

PartialHeader::PartialHeader(const SweepDeck& deck)
    : m_cards("# cards " + hashOf(deck.cards())), m_frequencies(frequenciesText(deck))
{}

QByteArray PartialHeader::bytes() const
{
    return title() + '\n' + format() + '\n' + m_cards + '\n' + m_frequencies + '\n' +
           PartialRow::columns();
}

bool PartialHeader::isPartial(const QByteArray& start)
{
    return start.startsWith(title());
}

QString PartialHeader::differenceTo(const QByteArray& header) const
{
    if (header == bytes()) {
        return {};
    }
    const QList<QByteArray> lines = header.split('\n');
    if (lines.value(titleLine) != title()) {
        return QStringLiteral("it does not hold partial results");
    }
    if (lines.value(formatLine) != format()) {
        return QStringLiteral("another version of the installation wrote it");
    }
    if (lines.value(cardsLine) != m_cards) {
        return QStringLiteral("it belongs to another model, or the cards were changed");
    }
    if (lines.value(frequenciesLine) != m_frequencies) {
        return QStringLiteral("it belongs to a sweep over other frequencies");
    }
    return QStringLiteral("its first lines are damaged");
}

} // namespace suite
