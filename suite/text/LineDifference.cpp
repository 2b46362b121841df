// SPDX-License-Identifier: MIT
#include "LineDifference.h"

#include <QHash>

#include <algorithm>
#include <vector>

namespace suite {

namespace {

// Steps that are tried before what is left counts as replaced as a whole: they cost the memory of
// their square.
constexpr int mostSteps = 2000;

using Lines = QVector<QByteArray>;
using Numbers = std::vector<int>;

Lines linesOf(const QByteArray& text)
{
    Lines lines = text.split('\n').toVector();
    if (lines.constLast().isEmpty()) {
        lines.removeLast();
    }
    for (QByteArray& line : lines) {
        if (line.endsWith('\r')) {
            line.chop(1);
        }
    }
    return lines;
}

// Equal lines get equal numbers, which are quicker to compare.
Numbers numbersOf(const Lines& lines, QHash<QByteArray, int>& known)
{
    Numbers numbers;
    numbers.reserve(static_cast<std::size_t>(lines.size()));
    for (const QByteArray& line : lines) {
        auto found = known.find(line);
        if (found == known.end()) {
            found = known.insert(line, known.size());
        }
        numbers.push_back(found.value());
    }
    return numbers;
}

// Lines that both have in this order, as positions in each.
struct Match
{
    int left;
    int right;
};

/// The greedy algorithm of E. W. Myers ("An O(ND) Difference Algorithm and Its Variations"): for
/// each number of steps, how far each diagonal of the table left x right can be followed.
class ShortestEdit
{
public:
    ShortestEdit(const int* left, int leftSize, const int* right, int rightSize)
        : m_left(left), m_right(right), m_leftSize(leftSize), m_rightSize(rightSize)
    {}

    // In descending order; empty also when the texts have too little in common.
    std::vector<Match> matches()
    {
        const int most = std::min(m_leftSize + m_rightSize, mostSteps);
        m_reach.assign(2 * static_cast<std::size_t>(most) + 3, 0);
        m_origin = most + 1;
        for (int steps = 0; steps <= most; ++steps) {
            m_history.emplace_back(m_reach.begin() + m_origin - steps - 1,
                                   m_reach.begin() + m_origin + steps + 2);
            if (advance(steps)) {
                return wayBack(steps);
            }
        }
        return {};
    }

private:
    int& reach(int diagonal) { return *(m_reach.begin() + m_origin + diagonal); }

    static bool goesDown(int diagonal, int steps, int below, int above)
    {
        return diagonal == -steps || (diagonal != steps && below < above);
    }

    // Whether the end of both was reached.
    bool advance(int steps)
    {
        for (int diagonal = -steps; diagonal <= steps; diagonal += 2) {
            const int below = reach(diagonal - 1);
            const int above = reach(diagonal + 1);
            int x = goesDown(diagonal, steps, below, above) ? above : below + 1;
            while (x < m_leftSize && x - diagonal < m_rightSize &&
                   m_left[x] == m_right[x - diagonal]) {
                ++x;
            }
            reach(diagonal) = x;
            if (x >= m_leftSize && x - diagonal >= m_rightSize) {
                return true;
            }
        }
        return false;
    }

    std::vector<Match> wayBack(int steps) const
    {
        std::vector<Match> found;
        int x = m_leftSize;
        int y = m_rightSize;
        for (; steps >= 0; --steps) {
            // Begins at the diagonal -steps - 1.
            const std::vector<int>& before = m_history[static_cast<std::size_t>(steps)];
            const auto at = [&before, steps](int diagonal) {
                return *(before.begin() + diagonal + steps + 1);
            };
            const int diagonal = x - y;
            const bool isDown = goesDown(diagonal, steps, at(diagonal - 1), at(diagonal + 1));
            const int previous = isDown ? diagonal + 1 : diagonal - 1;
            const int previousX = steps == 0 ? 0 : at(previous);
            const int previousY = steps == 0 ? 0 : previousX - previous;
            while (x > previousX && y > previousY) {
                found.push_back({--x, --y});
            }
            x = previousX;
            y = previousY;
        }
        return found;
    }

    const int* m_left;
    const int* m_right;
    int m_leftSize;
    int m_rightSize;
    int m_origin = 0; ///< of the diagonal 0
    Numbers m_reach;
    std::vector<Numbers> m_history;
};

QStringList textsOf(const Lines& lines, int begin, int end)
{
    QStringList texts;
    for (int i = begin; i < end; ++i) {
        texts.append(QString::fromUtf8(lines.at(i)));
    }
    return texts;
}

// What lies between the matches, which are in ascending order and end with the ends of both.
QVector<LineChange> changesBetween(const std::vector<Match>& matches, const Lines& left,
                                   const Lines& right, Match position)
{
    QVector<LineChange> changes;
    for (const Match& match : matches) {
        if (match.left > position.left || match.right > position.right) {
            changes.append({position.left + 1, position.right + 1,
                            textsOf(left, position.left, match.left),
                            textsOf(right, position.right, match.right)});
        }
        position = {match.left + 1, match.right + 1};
    }
    return changes;
}

} // namespace

QVector<LineChange> LineDifference::of(const QByteArray& left, const QByteArray& right)
{
    const Lines leftLines = linesOf(left);
    const Lines rightLines = linesOf(right);
    QHash<QByteArray, int> known;
    const Numbers leftNumbers = numbersOf(leftLines, known);
    const Numbers rightNumbers = numbersOf(rightLines, known);

    int leftEnd = leftLines.size();
    int rightEnd = rightLines.size();
    const auto firstChange = std::mismatch(leftNumbers.begin(), leftNumbers.end(),
                                           rightNumbers.begin(), rightNumbers.end());
    const int begin = static_cast<int>(firstChange.first - leftNumbers.begin());
    while (leftEnd > begin && rightEnd > begin &&
           leftNumbers[static_cast<std::size_t>(leftEnd - 1)] ==
               rightNumbers[static_cast<std::size_t>(rightEnd - 1)]) {
        --leftEnd;
        --rightEnd;
    }
    std::vector<Match> matches = ShortestEdit(leftNumbers.data() + begin, leftEnd - begin,
                                              rightNumbers.data() + begin, rightEnd - begin)
                                     .matches();
    std::reverse(matches.begin(), matches.end());
    for (Match& match : matches) {
        match.left += begin;
        match.right += begin;
    }
    matches.push_back({leftEnd, rightEnd});
    return changesBetween(matches, leftLines, rightLines, {begin, begin});
}

} // namespace suite
