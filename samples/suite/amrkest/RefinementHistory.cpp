// SPDX-License-Identifier: MIT
#include "RefinementHistory.h"

#include <TableLine.h>

#include <cmath>
#include <complex>

using namespace suite;

namespace {

double changeBetween(const Impedance& before, const Impedance& now)
{
    const std::complex<double> old(before.resistance, before.reactance);
    const std::complex<double> current(now.resistance, now.reactance);
    return std::abs(current) > 0 ? std::abs(current - old) / std::abs(current) : 0;
}

QString percent(double part)
{
    return QString::number(100 * part, 'g', 3);
}

} // namespace

RefinementHistory::RefinementHistory(double threshold, int mostIterations)
    : m_threshold(threshold), m_mostIterations(mostIterations)
{}

void RefinementHistory::add(int segments, const Impedance& impedance)
{
    Iteration iteration;
    iteration.factor = nextFactor();
    iteration.segments = segments;
    iteration.impedance = impedance;
    if (!m_iterations.isEmpty()) {
        iteration.change = changeBetween(last().impedance, impedance);
    }
    m_iterations.append(iteration);
}

FindingList RefinementHistory::conclusion(const FindingList& obstacle) const
{
    FindingList result;
    const std::optional<double> change = last().change;
    if (change && *change < m_threshold) {
        result.add(FindingKind::RefinementConverged, 0,
                   {QString::number(count()), QString::number(last().segments), percent(*change)});
    } else if (count() >= m_mostIterations) {
        result.add(FindingKind::RefinementNotConverged, 0,
                   {QString::number(count()),
                    change ? QStringLiteral("the last change was %1 % and the threshold is %2 %")
                                 .arg(percent(*change), thresholdText())
                           : QStringLiteral("one iteration has nothing to be compared with")});
    } else {
        result = obstacle;
    }
    return result;
}

QString RefinementHistory::thresholdText() const
{
    return percent(m_threshold);
}

QString RefinementHistory::lastText() const
{
    const QString text = QStringLiteral("%1 ohm resistance, %2 ohm reactance")
                             .arg(QString::number(last().impedance.resistance, 'f', 3),
                                  QString::number(last().impedance.reactance, 'f', 3));
    return last().change ? text + QStringLiteral(", change %1 %").arg(percent(*last().change))
                         : text;
}

QByteArray RefinementHistory::table() const
{
    QByteArray text =
        tableLine({"iteration", "segments", "resistance_ohm", "reactance_ohm", "change"});
    int number = 0;
    for (const Iteration& iteration : m_iterations) {
        text += tableLine({QByteArray::number(++number), QByteArray::number(iteration.segments),
                           tableNumber(iteration.impedance.resistance),
                           tableNumber(iteration.impedance.reactance),
                           iteration.change ? tableNumber(*iteration.change) : QByteArray()});
    }
    return text;
}
