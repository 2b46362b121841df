// SPDX-License-Identifier: MIT
#include "Wire.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace suite {

double distance(const Point& from, const Point& to)
{
    return std::hypot(to.x - from.x, to.y - from.y, to.z - from.z);
}

QString Wire::name() const
{
    return tag == 0 ? QStringLiteral("the wire without a tag")
                    : QStringLiteral("the wire with tag %1").arg(tag);
}

double Wire::shortestSegment() const
{
    double result = std::numeric_limits<double>::max();
    for (int i = 1; i < points.size(); ++i) {
        result = std::min(result, distance(points.at(i - 1), points.at(i)));
    }
    return result;
}

double Wire::longestSegment() const
{
    double result = 0;
    for (int i = 1; i < points.size(); ++i) {
        result = std::max(result, distance(points.at(i - 1), points.at(i)));
    }
    return result;
}

double Wire::lowestZ() const
{
    const auto lowest =
        std::min_element(points.begin(), points.end(),
                         [](const Point& left, const Point& right) { return left.z < right.z; });
    return lowest->z;
}

bool Wire::isInPlaneZ0() const
{
    const double tolerance = 1e-3 * shortestSegment();
    for (int i = 1; i < points.size(); ++i) {
        if (std::abs(points.at(i - 1).z) <= tolerance && std::abs(points.at(i).z) <= tolerance) {
            return true;
        }
    }
    return false;
}

} // namespace suite
