// SPDX-License-Identifier: MIT
#include "common_MessageOccurrences.h"

#include <QChar>

#include <algorithm>

namespace {

// The number that is written exactly like the text; 0 when there is none.
int asCount(const QString& text)
{
    const int number = text.toInt();
    return number > 0 && QString::number(number) == text ? number : 0;
}

template <typename T>
T& at(std::vector<T>& values, int index)
{
    return values[static_cast<std::size_t>(index)];
}

template <typename T>
const T& at(const std::vector<T>& values, int index)
{
    return values[static_cast<std::size_t>(index)];
}

} // namespace

// Uses the counts before this message raises any.
void common_MessageOccurrences::add(const QString& identifier, const QString& description)
{
    const int raisedText = textNumber(description);
    const int number = familyNumber(textNumber(identifier), raisedText);
    const int count = asCount(description);
    if (count > 0 && count <= highestCount()) {
        raiseRowsWithCount(count);
    }
    m_highestRaise = std::max(m_highestRaise, ++at(m_raises, raisedText));

    Family& family = at(m_families, number);
    family.runs.push_back({family.size, 1 - raiseOf(family)});
    m_members.push_back({number, family.size});
    ++family.size;
}

int common_MessageOccurrences::count(int row) const
{
    const Member& member = at(m_members, row);
    const Family& family = at(m_families, member.family);
    const auto behind =
        std::upper_bound(family.runs.cbegin(), family.runs.cend(), member.number,
                         [](int number, const Run& run) { return number < run.firstMember; });
    return std::prev(behind)->base + raiseOf(family);
}

// Texts are the same when they are equal letter by letter without regard to case, as
// QString::compare() does it. QString::toCaseFolded() would turn some letters into several.
common_MessageOccurrences::HashValue common_MessageOccurrences::Text::hash(HashValue seed) const
{
    QString folded = spelling;
    for (QChar& character : folded) {
        character = character.isSurrogate() ? QChar() : character.toCaseFolded();
    }
    return qHash(folded, seed);
}

int common_MessageOccurrences::textNumber(const QString& text)
{
    const Text key{text};
    const auto found = m_textNumbers.constFind(key);
    if (found != m_textNumbers.cend()) {
        return *found;
    }
    m_raises.push_back(0);
    return *m_textNumbers.insert(key, m_textNumbers.size());
}

int common_MessageOccurrences::familyNumber(int identifier, int description)
{
    const QPair<int, int> key(identifier, description);
    const auto found = m_familyNumbers.constFind(key);
    if (found != m_familyNumbers.cend()) {
        return *found;
    }
    m_families.push_back({identifier, description, 0, {}});
    return *m_familyNumbers.insert(key, m_familyNumbers.size());
}

int common_MessageOccurrences::raiseOf(const Family& family) const
{
    return at(m_raises, family.identifier) + at(m_raises, family.description);
}

// No count is above this: a message raises a row by its count only if it raises any row that way.
int common_MessageOccurrences::highestCount() const
{
    return 1 + 2 * m_highestRaise + m_raisesByCount;
}

// A run that reaches the count of the previous run is merged with it.
void common_MessageOccurrences::raiseRowsWithCount(int count)
{
    bool raised = false;
    for (Family& family : m_families) {
        const int base = count - raiseOf(family);
        const auto run =
            std::lower_bound(family.runs.begin(), family.runs.end(), base,
                             [](const Run& left, int right) { return left.base > right; });
        if (run == family.runs.end() || run->base != base) {
            continue;
        }
        raised = true;
        ++run->base;
        if (run != family.runs.begin() && std::prev(run)->base == run->base) {
            family.runs.erase(run);
        }
    }
    m_raisesByCount += raised ? 1 : 0;
}
