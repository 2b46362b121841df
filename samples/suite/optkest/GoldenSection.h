// SPDX-License-Identifier: MIT
#pragma once

#include "SectionSearch.h"

namespace suite {

/// The golden section search: one evaluation at a time, each makes the interval 0.618 times as
/// wide.
class GoldenSection : public SectionSearch
{
public:
    GoldenSection(double low, double high);

protected:
    [[nodiscard]] QVector<double> firstPoints(double low, double high) const override;
    [[nodiscard]] QVector<double> pointsAround(double low, double best, double high) const override;
};

} // namespace suite
