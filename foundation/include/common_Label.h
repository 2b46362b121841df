#pragma once

#include <QString>

#include <utility>

/// The name of an item as the user sees it. A value class.
class common_Label
{
public:
    common_Label() = default;
    common_Label(QString text) : m_text(std::move(text)) {}

    QString text() const { return m_text; }

    bool operator==(const common_Label& other) const { return m_text == other.m_text; }
    bool operator!=(const common_Label& other) const { return !(*this == other); }

private:
    QString m_text;
};
