// SPDX-License-Identifier: MIT
#pragma once

#include <QVector>

namespace suite {

/// The frequencies of a sweep, in MHz: `count` values, each the previous one plus the step or
/// multiplied by it.
struct FrequencyRange
{
    bool isMultiplying = false;
    int count = 0;
    double start = 0;
    double step = 0;

    [[nodiscard]] QVector<double> values() const;
    [[nodiscard]] double lowest() const;
    [[nodiscard]] double highest() const;
};

/// The wavelength in metres at a frequency in MHz.
double wavelength(double frequency);

} // namespace suite
