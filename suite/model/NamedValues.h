// SPDX-License-Identifier: MIT
#pragma once

#include <QHash>
#include <QString>
#include <QVector>

namespace suite {

/// A named value of a deck and its place: the line, and the position of its text within the line,
/// in bytes.
struct NamedValue
{
    QString name;
    double value = 0; ///< NaN if the card has an error
    int line = 0;
    int column = 0;
    int length = 0;
    bool isPlain = false; ///< a number, not an expression
};

/// The named values of a deck. Names are not case-sensitive.
class NamedValues
{
public:
    /// Adds a value. Its name must not exist yet.
    void add(const NamedValue& value);

    /// The value of this name, or nullptr.
    [[nodiscard]] const NamedValue* find(const QString& name) const;

    /// All values in the order of their definition.
    [[nodiscard]] const QVector<NamedValue>& all() const { return m_values; }

private:
    QVector<NamedValue> m_values;
    QHash<QString, int> m_places;
};

} // namespace suite
