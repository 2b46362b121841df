// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <utility>

/// The name of an item as the user sees it. A value class.
class common_Label
{
public:
    common_Label() = default;
    /// A label with this text; may be empty.
    common_Label(QString text) : m_text(std::move(text)) {}

    /// Empty for a default-constructed label.
    QString text() const { return m_text; }

    /// Compares the texts, with regard to case.
    bool operator==(const common_Label& other) const { return m_text == other.m_text; }
    /// The opposite of ==.
    bool operator!=(const common_Label& other) const { return !(*this == other); }

private:
    QString m_text;
};
