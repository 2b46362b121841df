// SPDX-License-Identifier: MIT
#include "ParallelSection.h"

#include <algorithm>

namespace suite {

namespace {

QVector<double> evenPoints(double low, double high, int count)
{
    QVector<double> result;
    for (int i = 1; i <= count; ++i) {
        result.append(low + (high - low) * i / (count + 1));
    }
    return result;
}

// How wide the interval can still be when so many points cut the gaps of these widths. The best
// point stays where it is, or it moves to one of the new points, which has neighbours of its own.
double worstWidth(double leftGap, int leftCount, double rightGap, int rightCount)
{
    const double left = leftGap / (leftCount + 1);
    const double right = rightGap / (rightCount + 1);
    return std::max({left + right, leftCount > 0 ? 2 * left : 0, rightCount > 0 ? 2 * right : 0});
}

} // namespace

ParallelSection::ParallelSection(double low, double high, int atOnce)
    : SectionSearch(low, high), m_atOnce(atOnce)
{}

QVector<double> ParallelSection::firstPoints(double low, double high) const
{
    return evenPoints(low, high, m_atOnce);
}

QVector<double> ParallelSection::pointsAround(double low, double best, double high) const
{
    int leftCount = 0;
    double narrowest = worstWidth(best - low, 0, high - best, m_atOnce);
    for (int count = 1; count <= m_atOnce; ++count) {
        const double width = worstWidth(best - low, count, high - best, m_atOnce - count);
        if (width < narrowest) {
            narrowest = width;
            leftCount = count;
        }
    }
    return evenPoints(low, best, leftCount) + evenPoints(best, high, m_atOnce - leftCount);
}

} // namespace suite
