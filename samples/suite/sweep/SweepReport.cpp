#include "SweepReport.h"

#include <QStringList>

#include <algorithm>
#include <cmath>

namespace suite {

namespace {

QString number(double value, int precision)
{
    return QString::number(value, 'g', precision);
}

QString fixed(double value, int decimals)
{
    return std::isfinite(value) ? QString::number(value, 'f', decimals) : QStringLiteral("inf");
}

// The table's cells behind the frequency; empty ones when there is no impedance.
QStringList csvCells(const SweepPoint& point)
{
    if (!point.impedance) {
        return {QString(), QString(), QString()};
    }
    const Impedance& impedance = *point.impedance;
    return {number(impedance.resistance, 6), number(impedance.reactance, 6),
            number(impedance.standingWaveRatio(), 6)};
}

// Where the straight line between two points of the sweep has no reactance.
SweepPoint crossing(const SweepPoint& from, const SweepPoint& to)
{
    const double x = from.impedance->reactance;
    const double part = x / (x - to.impedance->reactance);
    const auto between = [part](double left, double right) { return left + part * (right - left); };
    SweepPoint result;
    result.frequency = between(from.frequency, to.frequency);
    result.impedance = Impedance{between(from.impedance->resistance, to.impedance->resistance), 0};
    return result;
}

// A resonance between two points, or at the second of them.
bool isCrossing(const SweepPoint& from, const SweepPoint& to)
{
    const double left = from.impedance->reactance;
    const double right = to.impedance->reactance;
    return left != 0 && (right == 0 || std::signbit(left) != std::signbit(right));
}

} // namespace

QString SweepReport::tableHeader()
{
    return QStringLiteral("%1 %2 %3 %4")
        .arg(QStringLiteral("MHz"), 12)
        .arg(QStringLiteral("R ohm"), 12)
        .arg(QStringLiteral("X ohm"), 12)
        .arg(QStringLiteral("SWR"), 9);
}

QString SweepReport::tableLine(const SweepPoint& point)
{
    const QString frequency = fixed(point.frequency, 4);
    if (!point.impedance) {
        return QStringLiteral("%1 solved").arg(frequency, 12);
    }
    const Impedance& impedance = *point.impedance;
    return QStringLiteral("%1 %2 %3 %4")
        .arg(frequency, 12)
        .arg(fixed(impedance.resistance, 3), 12)
        .arg(fixed(impedance.reactance, 3), 12)
        .arg(fixed(impedance.standingWaveRatio(), 3), 9);
}

QByteArray SweepReport::csv() const
{
    QString text = QStringLiteral("frequency_MHz,resistance_ohm,reactance_ohm,swr\n");
    for (const SweepPoint& point : m_points) {
        const QStringList cells = QStringList(number(point.frequency, 10)) + csvCells(point);
        text += cells.join(QLatin1Char(',')) + QLatin1Char('\n');
    }
    return text.toLatin1();
}

FindingList SweepReport::facts() const
{
    FindingList result;
    QVector<SweepPoint> points;
    std::copy_if(m_points.begin(), m_points.end(), std::back_inserter(points),
                 [](const SweepPoint& point) { return point.impedance.has_value(); });
    if (points.isEmpty()) {
        return result;
    }
    for (int i = 1; i < points.size(); ++i) {
        if (isCrossing(points.at(i - 1), points.at(i))) {
            const SweepPoint point = crossing(points.at(i - 1), points.at(i));
            result.add(FindingKind::Resonance, 0,
                       {fixed(point.frequency, 3), fixed(point.impedance->resistance, 2)});
        }
    }
    if (!result.contains(FindingKind::Resonance)) {
        result.add(FindingKind::NoResonance);
    }
    const auto best =
        std::min_element(points.begin(), points.end(), [](const auto& a, const auto& b) {
            return a.impedance->standingWaveRatio() < b.impedance->standingWaveRatio();
        });
    result.add(FindingKind::BestMatch, 0,
               {fixed(best->frequency, 3), fixed(best->impedance->standingWaveRatio(), 3)});
    return result;
}

} // namespace suite
