// SPDX-License-Identifier: MIT
#include "SectionSearch.h"

#include <QString>

#include <algorithm>
#include <cmath>

namespace suite {

namespace {

// How exact the best point must be, relative to itself; a best point near 0 is measured by the
// interval's ends.
constexpr double exactness = 1e-4;

// More digits than these say nothing and are hard to read.
constexpr int digitCount = 9;

double shortened(double value)
{
    return QString::number(value, 'g', digitCount).toDouble();
}

} // namespace

SectionSearch::SectionSearch(double low, double high) : m_lowEnd(low), m_highEnd(high)
{}

SectionSearch::~SectionSearch() = default;

QVector<double> SectionSearch::next() const
{
    if (m_values.isEmpty()) {
        return distinct(firstPoints(m_lowEnd, m_highEnd));
    }
    if (high() - low() <= tolerance()) {
        return {};
    }
    return distinct(pointsAround(low(), m_best, high()));
}

void SectionSearch::add(double point, double value)
{
    const bool isBetter = m_values.isEmpty() || value < m_values.value(m_best) ||
                          (value == m_values.value(m_best) && point < m_best);
    m_values.insert(point, value);
    if (isBetter) {
        m_best = point;
    }
}

double SectionSearch::low() const
{
    const auto place = m_values.constFind(m_best);
    return place == m_values.constEnd() || place == m_values.constBegin() ? m_lowEnd
                                                                          : std::prev(place).key();
}

double SectionSearch::high() const
{
    const auto place = m_values.constFind(m_best);
    const bool isLast = place == m_values.constEnd() || std::next(place) == m_values.constEnd();
    return isLast ? m_highEnd : std::next(place).key();
}

bool SectionSearch::isAtEdge() const
{
    return low() == m_lowEnd || high() == m_highEnd;
}

double SectionSearch::progress() const
{
    const double whole = m_highEnd - m_lowEnd;
    const double width = high() - low();
    if (m_values.isEmpty() || width >= whole) {
        return 0;
    }
    if (width <= tolerance()) {
        return 1;
    }
    return std::log(whole / width) / std::log(whole / tolerance());
}

double SectionSearch::tolerance() const
{
    const double scale = std::max(std::abs(m_lowEnd), std::abs(m_highEnd));
    return exactness * std::max(std::abs(m_best), exactness * scale);
}

// Numbers have an end: points that coincide with each other or with known ones fall away.
QVector<double> SectionSearch::distinct(const QVector<double>& points) const
{
    QVector<double> result;
    for (const double point : points) {
        double candidate = shortened(point);
        if (candidate <= low() || candidate >= high()) {
            candidate = point;
        }
        const bool isInside = candidate > low() && candidate < high();
        if (isInside && !m_values.contains(candidate) && !result.contains(candidate)) {
            result.append(candidate);
        }
    }
    return result;
}

} // namespace suite
