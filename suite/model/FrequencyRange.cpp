// SPDX-License-Identifier: MIT
#include "FrequencyRange.h"

#include <algorithm>
#include <cmath>

namespace suite {

namespace {

// The speed of light as the engine has it, in metres times megahertz.
constexpr double speedOfLight = 299.8;

} // namespace

QVector<double> FrequencyRange::values() const
{
    QVector<double> result;
    result.reserve(count);
    for (int i = 0; i < count; ++i) {
        result.append(isMultiplying ? start * std::pow(step, i) : start + step * i);
    }
    return result;
}

double FrequencyRange::lowest() const
{
    const QVector<double> all = values();
    return all.isEmpty() ? 0 : *std::min_element(all.begin(), all.end());
}

double FrequencyRange::highest() const
{
    const QVector<double> all = values();
    return all.isEmpty() ? 0 : *std::max_element(all.begin(), all.end());
}

double wavelength(double frequency)
{
    return speedOfLight / frequency;
}

} // namespace suite
