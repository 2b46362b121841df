#pragma once

#include "Card.h"
#include "Wire.h"

#include <array>

namespace suite {

/// A linear map and a shift, as the cards that move, copy, turn, mirror and scale describe them.
class Transformation
{
public:
    /// The motion of a GM card: turns around x, y and z, then the shift.
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
