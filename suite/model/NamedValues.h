#pragma once

#include <QHash>
#include <QString>
#include <QVector>

namespace suite {

/// A value that a deck gives a name, and where it stands: its line, and the place of its text
/// within that line, in bytes.
struct NamedValue
{
    QString name;
    double value = 0; ///< not a number when the card holds a mistake
    int line = 0;
    int column = 0;
    int length = 0;
    bool isPlain = false; ///< a number, no expression
};

/// The named values of a deck. Upper and lower case make no difference.
class NamedValues
{
public:
    /// Adds a value whose name is not there yet.
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
