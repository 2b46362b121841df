// SPDX-License-Identifier: MIT
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

/// The rule for a kind of card: its section and its smallest number of fields.
struct CardRule
{
    const char* mnemonic;
    Section section;
    int requiredFields;
};

/// The rule of a card by its two upper-case letters, or nullptr.
const CardRule* cardRule(const QString& mnemonic);

/// The number of leading integer fields of a card of this section, and the number of all fields.
int integerFieldCount(Section section);
int fieldCount(Section section);

} // namespace suite
