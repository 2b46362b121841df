// SPDX-License-Identifier: MIT
#pragma once

#include "SectionSearch.h"

namespace suite {

/// The section search for several evaluations at once: they divide the gaps on both sides of the
/// best point evenly, which gives the narrowest interval in the worst case. Two at once halve it,
/// four reduce it to a third.
class ParallelSection : public SectionSearch
{
public:
    /// `atOnce` is the number of evaluations at a time, at least 2.
    ParallelSection(double low, double high, int atOnce);

protected:
    [[nodiscard]] QVector<double> firstPoints(double low, double high) const override;
    [[nodiscard]] QVector<double> pointsAround(double low, double best, double high) const override;

private:
    int m_atOnce;
};

} // namespace suite
