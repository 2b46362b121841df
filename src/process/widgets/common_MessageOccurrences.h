// SPDX-License-Identifier: MIT
#pragma once

#include <QHash>
#include <QPair>
#include <QString>

#include <vector>

/// Counts, for every message of a table, how often an equal one has occurred since.
///
/// Each message is a row with an identifier, a count that begins at 1 and a description. A new
/// message raises the count of every row before it by one for each of the row's three texts that
/// equals the new description, the case of letters aside. So a description that is a number also
/// raises the rows that have just that count.
///
/// Adding and reading take about the same time for any number of rows: rows with the same texts
/// share one number by which they are raised. Only a description that is a number is compared with
/// every pair of texts.
class common_MessageOccurrences
{
public:
    /// Adds the next row.
    void add(const QString& identifier, const QString& description);

    /// The count of a row, counted from 0.
    int count(int row) const;

private:
    using HashValue = decltype(qHash(QString()));

    /// A text, all of whose spellings are equal.
    struct Text
    {
        QString spelling;

        friend bool operator==(const Text& left, const Text& right)
        {
            return left.spelling.compare(right.spelling, Qt::CaseInsensitive) == 0;
        }
        friend HashValue qHash(const Text& text, HashValue seed) { return text.hash(seed); }
        HashValue hash(HashValue seed) const;
    };

    /// Neighbouring rows of a family with the same count.
    struct Run
    {
        int firstMember;
        int base; ///< the count minus the number by which all rows of the family were raised
    };

    /// The rows with the same two texts, in order: earlier ones have the higher counts.
    struct Family
    {
        int identifier;
        int description;
        int size;
        std::vector<Run> runs;
    };

    struct Member
    {
        int family;
        int number;
    };

    int textNumber(const QString& text);
    int familyNumber(int identifier, int description);
    int raiseOf(const Family& family) const;
    int highestCount() const;
    void raiseRowsWithCount(int count);

    QHash<Text, int> m_textNumbers;
    std::vector<int> m_raises; ///< of each text: how many messages have had it as description
    QHash<QPair<int, int>, int> m_familyNumbers;
    std::vector<Family> m_families;
    std::vector<Member> m_members; ///< of each row
    int m_highestRaise = 0;
    int m_raisesByCount = 0; ///< how many messages raised rows by their count
};
