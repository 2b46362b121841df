// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <optional>

namespace suite {

/// The place in a model that a message is about, and how messages name it at their end:
/// "(dipole.nec, line 12, tag 3)". The form has no colon, because readers split messages at colons,
/// and at() parses it.
struct Place
{
    QString file; ///< file name without folder; empty if it is clear from the context
    int line = 0; ///< from 1; 0 for no place
    int tag = 0;  ///< of the wire, as the model has it; 0 for none

    /// The form above. Characters of the name that a message cannot carry are written as "%3A", and
    /// so are brackets that do not match. Empty without a line.
    [[nodiscard]] QString text() const;

    /// A message with this place behind it.
    [[nodiscard]] QString behind(const QString& message) const;

    /// The place at the end of a message; nothing if there is none.
    static std::optional<Place> at(const QString& message);
};

bool operator==(const Place& left, const Place& right);

} // namespace suite
