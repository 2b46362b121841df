#pragma once

#include "Card.h"
#include "CardRules.h"
#include "Finding.h"
#include "NamedValues.h"

namespace suite {

/// Reads the fields of one card: first the whole numbers, then the numbers, separated by blanks,
/// tabs or commas. Where the deck has named values, a field may be a name or an expression, and
/// holds the plain number afterwards. What stands behind "!", "#" or "'" is a remark.
class CardParser
{
public:
    /// The values, which are not owned, are null for a deck that names none.
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
    QVector<QPair<int, double>> m_evaluated; ///< the fields that were no plain numbers
};

} // namespace suite
