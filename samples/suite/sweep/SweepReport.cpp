// SPDX-License-Identifier: MIT
#include "SweepReport.h"

#include <QStringList>

#include <algorithm>
#include <cmath>

namespace suite::SweepReport {

namespace {

QString fixed(double value, int decimals)
{
    return std::isfinite(value) ? QString::number(value, 'f', decimals) : QStringLiteral("inf");
}

// The frequency at which the straight line between two points of the sweep has no reactance.
ResultPoint crossing(const ResultPoint& from, const ResultPoint& to)
{
    const double x = from.value(Quantity::Reactance);
    const double part = x / (x - to.value(Quantity::Reactance));
    const auto between = [part](double left, double right) { return left + part * (right - left); };
    const double resistance =
        between(from.value(Quantity::Resistance), to.value(Quantity::Resistance));
    return {between(from.frequency, to.frequency), Impedance{resistance, 0}};
}

// A resonance between two points, or at the second of them.
bool isCrossing(const ResultPoint& from, const ResultPoint& to)
{
    const double left = from.value(Quantity::Reactance);
    const double right = to.value(Quantity::Reactance);
    return left != 0 && (right == 0 || std::signbit(left) != std::signbit(right));
}

bool isBetterMatch(const ResultPoint& left, const ResultPoint& right)
{
    return left.value(Quantity::StandingWaveRatio) < right.value(Quantity::StandingWaveRatio);
}

} // namespace

QString tableHeader()
{
    return QStringLiteral("%1 %2 %3 %4")
        .arg(QStringLiteral("MHz"), 12)
        .arg(QStringLiteral("R ohm"), 12)
        .arg(QStringLiteral("X ohm"), 12)
        .arg(QStringLiteral("SWR"), 9);
}

QString tableLine(const ResultPoint& point)
{
    const QString frequency = fixed(point.frequency, 4);
    if (!point.impedance()) {
        return QStringLiteral("%1 solved").arg(frequency, 12);
    }
    return QStringLiteral("%1 %2 %3 %4")
        .arg(frequency, 12)
        .arg(fixed(point.value(Quantity::Resistance), 3), 12)
        .arg(fixed(point.value(Quantity::Reactance), 3), 12)
        .arg(fixed(point.value(Quantity::StandingWaveRatio), 3), 9);
}

FindingList facts(const QVector<ResultPoint>& points)
{
    FindingList result;
    QVector<ResultPoint> known;
    std::copy_if(points.begin(), points.end(), std::back_inserter(known),
                 [](const ResultPoint& point) { return point.impedance().has_value(); });
    if (known.isEmpty()) {
        return result;
    }
    for (int i = 1; i < known.size(); ++i) {
        if (isCrossing(known.at(i - 1), known.at(i))) {
            const ResultPoint point = crossing(known.at(i - 1), known.at(i));
            result.add(FindingKind::Resonance, 0,
                       {fixed(point.frequency, 3), fixed(point.value(Quantity::Resistance), 2)});
        }
    }
    if (!result.contains(FindingKind::Resonance)) {
        result.add(FindingKind::NoResonance);
    }
    const ResultPoint& best = *std::min_element(known.begin(), known.end(), isBetterMatch);
    result.add(FindingKind::BestMatch, 0,
               {fixed(best.frequency, 3), fixed(best.value(Quantity::StandingWaveRatio), 3)});
    return result;
}

} // namespace suite::SweepReport
