// SPDX-License-Identifier: MIT
#pragma once

#include "Card.h"
#include "Wire.h"

#include <array>

namespace suite {

/// A linear map and a translation, as described by the cards that move, copy, rotate, mirror and
/// scale.
class Transformation
{
public:
    /// The motion of a GM card: rotations around x, y and z, then the translation.
    explicit Transformation(const Card& moveCard);

    static Transformation aroundZ(double degrees);
    static Transformation mirror(int axis);
    static Transformation scale(double factor);

    /// The wires after "times" applications. Tags other than 0 grow by the increment each time.
    [[nodiscard]] QVector<Wire> applied(const QVector<Wire>& wires, int tagIncrement, int times,
                                        bool isCopy) const;

private:
    Transformation() = default;

    [[nodiscard]] Point applied(const Point& point) const;

    std::array<double, 9> m_matrix = {1, 0, 0, 0, 1, 0, 0, 0, 1};
    Point m_shift;
};

} // namespace suite
