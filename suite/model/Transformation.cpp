// SPDX-License-Identifier: MIT
#include "Transformation.h"

#include <cmath>
#include <limits>

namespace suite {

namespace {

constexpr double degreesToRadians = 3.14159265358979323846 / 180.0;

int grownTag(int tag, int increment, int times)
{
    constexpr qint64 largestTag = std::numeric_limits<int>::max();
    const qint64 grown = tag + static_cast<qint64>(increment) * times;
    return static_cast<int>(qBound(-largestTag, grown, largestTag));
}

} // namespace

Transformation::Transformation(const Card& moveCard)
{
    const double x = moveCard.number(1) * degreesToRadians;
    const double y = moveCard.number(2) * degreesToRadians;
    const double z = moveCard.number(3) * degreesToRadians;
    const double sinX = std::sin(x);
    const double cosX = std::cos(x);
    const double sinY = std::sin(y);
    const double cosY = std::cos(y);
    const double sinZ = std::sin(z);
    const double cosZ = std::cos(z);
    m_matrix = {cosZ * cosY,
                cosZ * sinY * sinX - sinZ * cosX,
                cosZ * sinY * cosX + sinZ * sinX,
                sinZ * cosY,
                sinZ * sinY * sinX + cosZ * cosX,
                sinZ * sinY * cosX - cosZ * sinX,
                -sinY,
                cosY * sinX,
                cosY * cosX};
    m_shift = {moveCard.number(4), moveCard.number(5), moveCard.number(6)};
}

Transformation Transformation::aroundZ(double degrees)
{
    const double angle = degrees * degreesToRadians;
    Transformation result;
    result.m_matrix[0] = std::cos(angle);
    result.m_matrix[1] = -std::sin(angle);
    result.m_matrix[3] = std::sin(angle);
    result.m_matrix[4] = std::cos(angle);
    return result;
}

Transformation Transformation::mirror(int axis)
{
    Transformation result;
    result.m_matrix.at(static_cast<std::size_t>(axis) * 4) = -1;
    return result;
}

Transformation Transformation::scale(double factor)
{
    Transformation result;
    for (double& element : result.m_matrix) {
        element *= factor;
    }
    return result;
}

QVector<Wire> Transformation::applied(const QVector<Wire>& wires, int tagIncrement, int times,
                                      bool isCopy) const
{
    QVector<Wire> result = wires;
    for (Wire& wire : result) {
        wire.isCopy = wire.isCopy || isCopy;
        wire.tag = wire.tag == 0 ? 0 : grownTag(wire.tag, tagIncrement, times);
        for (Point& point : wire.points) {
            for (int i = 0; i < times; ++i) {
                point = applied(point);
            }
        }
    }
    return result;
}

Point Transformation::applied(const Point& point) const
{
    const auto& m = m_matrix;
    return {m[0] * point.x + m[1] * point.y + m[2] * point.z + m_shift.x,
            m[3] * point.x + m[4] * point.y + m[5] * point.z + m_shift.y,
            m[6] * point.x + m[7] * point.y + m[8] * point.z + m_shift.z};
}

} // namespace suite
