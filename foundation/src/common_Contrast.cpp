// SPDX-License-Identifier: MIT
#include <common_Contrast.h>

#include <algorithm>
#include <cmath>

namespace {

double linear(double channel)
{
    return channel <= 0.03928 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& colour)
{
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

QColor mixed(const QColor& colour, const QColor& other, double share)
{
    const auto channel = [share](int one, int two) { return qRound(one + (two - one) * share); };
    return QColor(channel(colour.red(), other.red()), channel(colour.green(), other.green()),
                  channel(colour.blue(), other.blue()), colour.alpha());
}

} // namespace

double common_Contrast::ratio(const QColor& one, const QColor& other)
{
    constexpr double glare = 0.05;
    const auto [darker, lighter] = std::minmax({luminance(one), luminance(other)});
    return (lighter + glare) / (darker + glare);
}

QColor common_Contrast::readable(const QColor& colour, const QColor& base)
{
    constexpr int steps = 50;
    const bool isDark = ratio(base, Qt::white) >= ratio(base, Qt::black);
    QColor shade = colour;
    for (int step = 1; step <= steps && ratio(shade, base) < least; ++step) {
        shade = mixed(colour, isDark ? Qt::white : Qt::black, double(step) / steps);
    }
    return shade;
}
