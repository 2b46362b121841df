// SPDX-License-Identifier: MIT
#include "TableDifference.h"

#include "ResultTable.h"

#include <algorithm>
#include <cmath>

namespace suite {

namespace {

constexpr double frequencyTolerance = 1e-9; // relative: tables have ten digits

QVector<ResultPoint> sorted(QVector<ResultPoint> points)
{
    std::stable_sort(points.begin(), points.end(),
                     [](const auto& a, const auto& b) { return a.frequency < b.frequency; });
    return points;
}

bool isSameFrequency(double left, double right)
{
    return std::abs(left - right) <= frequencyTolerance * std::max(left, right);
}

double relativeDistance(const Impedance& left, const Impedance& right)
{
    const double size = std::max(std::hypot(left.resistance, left.reactance),
                                 std::hypot(right.resistance, right.reactance));
    const double distance =
        std::hypot(left.resistance - right.resistance, left.reactance - right.reactance);
    return size > 0 ? distance / size : 0;
}

void compare(const ResultPoint& left, const ResultPoint& right, TableDifference& result)
{
    ++result.common;
    const auto leftImpedance = left.impedance();
    const auto rightImpedance = right.impedance();
    if (leftImpedance.has_value() != rightImpedance.has_value()) {
        ++result.unknown;
    }
    if (!leftImpedance || !rightImpedance) {
        return;
    }
    const double distance = relativeDistance(*leftImpedance, *rightImpedance);
    if (distance > result.largest) {
        result.largest = distance;
        result.frequency = left.frequency;
        result.left = *leftImpedance;
        result.right = *rightImpedance;
    }
}

} // namespace

TableDifference TableDifference::of(const ResultTable& left, const ResultTable& right)
{
    const QVector<ResultPoint> leftPoints = sorted(left.points);
    const QVector<ResultPoint> rightPoints = sorted(right.points);
    TableDifference result;
    auto a = leftPoints.cbegin();
    auto b = rightPoints.cbegin();
    while (a != leftPoints.cend() && b != rightPoints.cend()) {
        if (isSameFrequency(a->frequency, b->frequency)) {
            compare(*a++, *b++, result);
        } else if (a->frequency < b->frequency) {
            ++result.onlyLeft;
            ++a;
        } else {
            ++result.onlyRight;
            ++b;
        }
    }
    result.onlyLeft += static_cast<int>(leftPoints.cend() - a);
    result.onlyRight += static_cast<int>(rightPoints.cend() - b);
    return result;
}

bool TableDifference::isNone() const
{
    return onlyLeft == 0 && onlyRight == 0 && unknown == 0 && !(largest > 0);
}

} // namespace suite
