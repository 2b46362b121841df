// SPDX-License-Identifier: MIT
#pragma once

#include "Card.h"
#include "CardRules.h"
#include "Finding.h"
#include "NamedValues.h"

namespace suite {

/// Reads the fields of one card: first the integers, then the floating-point numbers, separated by
/// blanks, tabs or commas. If the deck has named values, a field may be a name or an expression and
/// is replaced by its value. "!", "#" and "'" begin a comment.
class CardParser
{
public:
    /// The values are not owned; null for a deck without named values.
    CardParser(FindingList& findings, const NamedValues* values);

    /// Fills the card's fields from the text behind its two letters.
    void parse(const CardRule& rule, const QString& text, Card& card);

private:
    bool checkCount(const CardRule& rule, const Card& card);
    bool parseField(const CardRule& rule, Card& card, int index);
    bool evaluateField(Card& card, int index, bool isInteger);
    bool shortenFields(Card& card);
    bool parseInteger(Card& card, int index);
    bool parseNumber(Card& card, int index);
    void report(FindingKind kind, const Card& card, int index);

    FindingList& m_findings;
    const NamedValues* m_values;
    QVector<QPair<int, double>> m_evaluated; ///< the fields that were not plain numbers
};

} // namespace suite
