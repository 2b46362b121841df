#pragma once

#include "Card.h"
#include "CardRules.h"
#include "Finding.h"

namespace suite {

// Reads the fields of one card: first the whole numbers, then the numbers, separated by blanks,
// tabs or commas. What stands behind "!", "#" or "'" is a remark.
class CardParser
{
public:
    explicit CardParser(FindingList& findings);

    // Fills the card's fields from the text behind its two letters.
    void parse(const CardRule& rule, const QString& text, Card& card);

private:
    bool checkCount(const CardRule& rule, const Card& card);
    bool parseField(const CardRule& rule, Card& card, int index);
    bool parseInteger(Card& card, int index);
    bool parseNumber(Card& card, int index);
    void report(FindingKind kind, const Card& card, int index);

    FindingList& m_findings;
};

} // namespace suite
