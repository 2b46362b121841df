// SPDX-License-Identifier: MIT
#include "NearWord.h"

#include <QVector>

#include <algorithm>

namespace {

constexpr int mostSlips = 2;
constexpr int fewestLetters = 3; // of an abbreviation, and of a word with slips

bool isAbbreviation(const QString& typed, const QString& word)
{
    int place = 0;
    for (const QChar letter : word) {
        place += place < typed.size() && typed.at(place) == letter ? 1 : 0;
    }
    return place == typed.size();
}

bool isExchanged(const QString& typed, const QString& word, int row, int column)
{
    return row > 1 && column > 1 && typed.at(row - 1) == word.at(column - 2) &&
           typed.at(row - 2) == word.at(column - 1);
}

// The distance of optimal string alignment; a row for each letter that was typed.
int slips(const QString& typed, const QString& word)
{
    QVector<QVector<int>> table(typed.size() + 1, QVector<int>(word.size() + 1));
    for (int row = 0; row <= typed.size(); ++row) {
        for (int column = 0; column <= word.size(); ++column) {
            if (row == 0 || column == 0) {
                table[row][column] = row + column;
                continue;
            }
            const int wrong = typed.at(row - 1) == word.at(column - 1) ? 0 : 1;
            int best = std::min({table[row - 1][column] + 1, table[row][column - 1] + 1,
                                 table[row - 1][column - 1] + wrong});
            if (isExchanged(typed, word, row, column)) {
                best = std::min(best, table[row - 2][column - 2] + 1);
            }
            table[row][column] = best;
        }
    }
    return table[typed.size()][word.size()];
}

bool isNear(const QString& typed, const QString& word)
{
    return typed.size() >= fewestLetters && typed.size() <= word.size() + mostSlips &&
           typed.at(0) == word.at(0) &&
           (isAbbreviation(typed, word) || slips(typed, word) <= mostSlips);
}

} // namespace

QString NearWord::of(const QString& typed, const QStringList& known)
{
    const QString word = typed.toLower();
    const auto found = std::find_if(known.begin(), known.end(),
                                    [&word](const QString& each) { return isNear(word, each); });
    return found == known.end() ? QString() : *found;
}
