// SPDX-License-Identifier: MIT
#include "RoundLength.h"

#include <cmath>

namespace {

struct Unit
{
    const char* name;
    double metres;
};

// clang-format off
constexpr Unit units[] = {
    {"km", 1e3},
    {"m",  1},
    {"cm", 1e-2},
    {"mm", 1e-3},
    {"µm", 1e-6},
};
// clang-format on

constexpr double tolerance = 1e-9; // 5 is not more than 5, whatever the last digits say

} // namespace

double roundLength(double most)
{
    const double power = std::pow(10.0, std::floor(std::log10(most) + tolerance));
    for (const double digit : {5.0, 2.0}) {
        if (digit * power <= most * (1 + tolerance)) {
            return digit * power;
        }
    }
    return power;
}

QString lengthText(double metres)
{
    const Unit* best = std::end(units) - 1;
    for (const Unit& unit : units) {
        if (metres >= unit.metres * (1 - tolerance)) {
            best = &unit;
            break;
        }
    }
    return QStringLiteral("%1 %2").arg(QString::number(metres / best->metres, 'g', 3),
                                       QString::fromUtf8(best->name));
}
