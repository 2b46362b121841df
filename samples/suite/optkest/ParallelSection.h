#pragma once

#include "SectionSearch.h"

namespace suite {

/// The section search for several evaluations at once: they cut the gaps on both sides of the best
/// point into even pieces, so that the interval is as narrow as can be, however they turn out. Two
/// at once halve it, four make it a third.
class ParallelSection : public SectionSearch
{
public:
    /// "atOnce" is the number of evaluations at a time, at least 2.
    ParallelSection(double low, double high, int atOnce);

protected:
    [[nodiscard]] QVector<double> firstPoints(double low, double high) const override;
    [[nodiscard]] QVector<double> pointsAround(double low, double best, double high) const override;

private:
    int m_atOnce;
};

} // namespace suite
