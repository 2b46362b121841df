#pragma once

#include <QString>

namespace suite {

enum class Section {
    Comment,
    Geometry,
    Control,
    Definition,
    End,
    Unsupported,
};

/// What is known of a kind of card: where it belongs and how many fields it needs at least.
struct CardRule
{
    const char* mnemonic;
    Section section;
    int requiredFields;
};

/// The rule of a card by its two upper-case letters, or nullptr.
const CardRule* cardRule(const QString& mnemonic);

/// How many leading fields of a card of this section are whole numbers, and how many fields there
/// are in all.
int integerFieldCount(Section section);
int fieldCount(Section section);

} // namespace suite
