// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QVector>

namespace suite {

/// A point in space, in metres.
struct Point
{
    double x = 0;
    double y = 0;
    double z = 0;
};

/// A chain of straight segments of one tag: a wire, an arc, a helix, or a copy of one.
struct Wire
{
    int tag = 0;
    int line = 0; ///< of the card that made it
    bool isCopy = false;
    double radius = 0;
    QVector<Point> points; ///< one more than segments

    /// The name of the wire in messages: "the wire with tag 3".
    [[nodiscard]] QString name() const;

    [[nodiscard]] int segmentCount() const { return points.size() - 1; }
    [[nodiscard]] double shortestSegment() const;
    [[nodiscard]] double longestSegment() const;
    [[nodiscard]] double lowestZ() const;
    [[nodiscard]] bool isInPlaneZ0() const;
};

double distance(const Point& from, const Point& to);

} // namespace suite
