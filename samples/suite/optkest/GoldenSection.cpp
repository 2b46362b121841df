// SPDX-License-Identifier: MIT
#include "GoldenSection.h"

namespace suite {

namespace {

// The smaller part of an interval in the golden section: (3 - sqrt(5)) / 2.
constexpr double smallerPart = 0.38196601125010515;

} // namespace

GoldenSection::GoldenSection(double low, double high) : SectionSearch(low, high)
{}

QVector<double> GoldenSection::firstPoints(double low, double high) const
{
    return {low + smallerPart * (high - low)};
}

// In the wider gap, so far from the best point that both divide the interval in the golden section.
QVector<double> GoldenSection::pointsAround(double low, double best, double high) const
{
    const bool isHighWider = high - best > best - low;
    return {best + smallerPart * (isHighWider ? high - best : low - best)};
}

} // namespace suite
